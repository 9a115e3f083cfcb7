// What is selected in fields of one line and of several.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

#include "toolbox/control_state.h"
#include "toolbox/widget_texts.h"

using namespace toolbox;

CFRange GetControlTextSelection(ControlRef control) {
    const QWidget* const widget = ToWidget(control);
    if (const auto* const area = qobject_cast<const QPlainTextEdit*>(widget)) {
        const QTextCursor cursor = area->textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
    }
    const QLineEdit* const line = widget ? LineOf(*widget) : nullptr;
    if (!line) return {0, 0};
    return {line->hasSelectedText() ? line->selectionStart() : line->cursorPosition(),
            line->selectionLength()};
}

void SetControlTextSelection(ControlRef control, CFRange selection) {
    QWidget* const widget = ToWidget(control);
    if (!widget) return;
    const CFIndex length = OwnText(*widget).size();
    const CFIndex first = std::clamp<CFIndex>(selection.location, 0, length);
    const CFIndex count = std::clamp<CFIndex>(selection.length, 0, length - first);
    const int start = static_cast<int>(first), end = static_cast<int>(first + count);
    if (auto* const area = qobject_cast<QPlainTextEdit*>(widget)) {
        QTextCursor cursor = area->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        area->setTextCursor(cursor);
    } else if (QLineEdit* const line = LineOf(*widget)) {
        line->setSelection(start, end - start);
    }
}
