#include "toolbox/raw_keys.h"

#include "toolbox/event_way.h"

namespace toolbox {
namespace {

constexpr struct {
    Qt::Key key;
    char16_t character;
} kNamedKeys[] = {
    {Qt::Key_Return, 13},  {Qt::Key_Enter, 3},   {Qt::Key_Backspace, 8},
    {Qt::Key_Delete, 127}, {Qt::Key_Escape, 27},
};

/// With Ctrl a key's text is a control character, or none; then its own character counts.
UniChar CharacterOf(const QKeyEvent& key) {
    for (const auto& row : kNamedKeys) {
        if (key.key() == row.key) return row.character;
    }
    if (!key.text().isEmpty() && key.text().front().isPrint()) return key.text().front().unicode();
    const bool isCharacter = key.key() >= Qt::Key_Space && key.key() <= Qt::Key_ydiaeresis;
    if (!isCharacter) return 0;
    const QChar upper(key.key());
    return (key.modifiers() & Qt::ShiftModifier ? upper : upper.toLower()).unicode();
}

bool HasControlKey(const QKeyEvent& key) {
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) ==
           Qt::ControlModifier;
}

}  // namespace

void SendRawKey(QWidget& widget, QKeyEvent& key, const std::function<void()>& standard) {
    key.accept();
    OpaqueEvent event{kEventClassKeyboard, kEventRawKeyDown, &widget};
    event.keyCharacter = CharacterOf(key);
    event.hasControlKey = HasControlKey(key);
    event.standard = [alive = QPointer<QWidget>(&widget), &standard] {
        if (alive) standard();
    };
    SendEvent(widget, event);
}

}  // namespace toolbox
