// What a widget says: its own text, and its texts by key.
#pragma once

#include <QLineEdit>
#include <QString>
#include <QWidget>

#include "foundation/bundle.h"

namespace toolbox {

/// Title of buttons, boxes, windows and tabs (at their pages), text of labels and fields. Others
/// have none.
void SetOwnText(QWidget& widget, const QString& text);
[[nodiscard]] QString OwnText(const QWidget& widget);

/// The line that a text field or a combo box edits; null for others.
[[nodiscard]] QLineEdit* LineOf(const QWidget& widget);

/// Looks up the widget's properties textKey, nameKey (accessible name) and tipKey in the table
/// textTable ("Localizable" without one). A key without a text: "STRING NOT FOUND" and one line in
/// the log.
void ApplyTexts(QWidget& widget, CFBundleRef bundle);

}  // namespace toolbox
