#include "toolbox/popup_button.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

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
    constexpr Qt::Key kSteps[] = {Qt::Key_Up,       Qt::Key_Down, Qt::Key_PageUp,
                                  Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    const bool steps = std::ranges::find(kSteps, event->key()) != std::end(kSteps);
    const bool searches = !event->text().isEmpty() && event->text().front().isLetterOrNumber() &&
                          !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!steps && !searches) return QComboBox::keyPressEvent(event);
    const QPointer<PopupButton> self = this;
    showPopup();
    if (!self) return;
    if (searches) view()->keyboardSearch(event->text());
    // The list opens at the chosen item: one step is not taken, a leap is.
    if (steps && event->key() != Qt::Key_Up && event->key() != Qt::Key_Down)
        QCoreApplication::sendEvent(view(), event);
}

void PopupButton::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace toolbox
