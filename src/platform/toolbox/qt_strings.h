// Texts on their way between counted strings and Qt.
#pragma once

#include <QString>
#include <QTextDocument>

#include "foundation/string.h"

namespace toolbox {

/// Empty for null.
[[nodiscard]] inline QString ToQString(CFStringRef text) {
    if (!text) return {};
    QString copy(static_cast<qsizetype>(CFStringGetLength(text)), Qt::Uninitialized);
    CFStringGetCharacters(text, {0, copy.size()}, reinterpret_cast<UniChar*>(copy.data()));
    return copy;
}

/// The caller releases it.
[[nodiscard]] inline CFStringRef CreateString(const QString& text) {
    return CFStringCreateWithCharacters(
        kCFAllocatorDefault, reinterpret_cast<const UniChar*>(text.utf16()), text.size());
}

/// A text for places that take markup on their own account: shown as it is written.
[[nodiscard]] inline QString AsPlainText(const QString& text) {
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

}  // namespace toolbox
