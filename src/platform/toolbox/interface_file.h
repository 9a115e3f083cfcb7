// Windows made from the text of an interface file.
#pragma once

#include <QByteArray>
#include <QString>
#include <QWidget>
#include <memory>

#include "foundation/bundle.h"

namespace toolbox {

struct InterfaceFile {
    Owned<CFBundleRef> bundle;  // texts come from here
    QString name;               // without its ending
    QByteArray xml;

    /// Whether the text is an interface file at all; one line in the log otherwise.
    [[nodiscard]] bool isWellFormed() const;
    /// The top-level widget of that object name: the file's root or one directly inside it. Hidden,
    /// with texts, ids and sizes. Null, and one line in the log, when there is none or it is
    /// faulty.
    [[nodiscard]] std::unique_ptr<QWidget> makeWindow(const QString& object) const;

private:
    void complain(const QString& fault) const;
};

/// How large the window, which has a layout, wants to be for what is in it now, and not for what
/// its layouts remember until events are handled.
[[nodiscard]] QSize SizeForContents(QWidget& window);

}  // namespace toolbox
