#include "toolbox/popup_button.h"

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

void PopupButton::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace toolbox
