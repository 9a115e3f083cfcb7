// Small pieces that the dialog's widgets share.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QWidget>
#include <filesystem>

namespace kalmo {

/// The distance between rows, and between groups of controls.
inline constexpr int kRowGap = 12;

[[nodiscard]] bool IsDark(const QPalette& palette);

/// With "~" for the user's home, as people write it.
[[nodiscard]] QString ShownPath(const std::filesystem::path& path);

/// A hidden line that says what is wrong, readable on light and dark.
[[nodiscard]] QLabel* CreateFaultLabel(QWidget* parent);
/// Says `fault` in such a line and as what `field`, which gets the focus, is described by; an empty
/// one takes that back.
void ShowFault(QLabel& line, QWidget& field, const QString& fault);
/// A line of lesser weight below a control.
[[nodiscard]] QLabel* CreateNoteLabel(QWidget* parent);

/// "Cancel", and "OK" as the default, at the end of a dialog; they reject and accept it.
struct DialogButtons {
    QLayout* row;
    QPushButton* ok;
};
[[nodiscard]] DialogButtons CreateDialogButtons(QDialog& dialog);

}  // namespace kalmo
