#include "toolbox/popup_button.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include "toolbox/event_way.h"
#include "toolbox/menu_model.h"

namespace toolbox {

PopupButton::PopupButton(QWidget* parent) : QComboBox(parent) {
    GiveMenu(*this);
    setSizeAdjustPolicy(AdjustToContents);
    setFocusPolicy(Qt::StrongFocus);  // the wheel does not even focus it
}

void PopupButton::showPopup() {
    const QPointer<PopupButton> self = this;
    OpaqueEvent event{kEventClassMenu, kEventMenuPopulate, this};
    SendEvent(*this, event);
    if (self) QComboBox::showPopup();
}

void PopupButton::keyPressEvent(QKeyEvent* event) {
    const bool steps = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (steps && !event->isAutoRepeat()) {
        showPopup();
    } else if (!steps) {
        QComboBox::keyPressEvent(event);
    }
}

void PopupButton::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace toolbox
