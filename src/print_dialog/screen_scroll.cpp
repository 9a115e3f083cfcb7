#include "print_dialog/screen_scroll.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

namespace kalmo {
namespace {

/// Room that the window's other parts and the desktop's bars take from the screen.
constexpr QSize kAround(420, 200);

}  // namespace

ScreenScroll::ScreenScroll(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

QSize ScreenScroll::minimumSizeHint() const {
    if (!widget()) return {};
    const QSize contents = sizeOfContents();
    const QSize room = screen()->availableSize() - kAround;
    const QSize fitting = contents.boundedTo(room);
    const int bar = verticalScrollBar()->sizeHint().width();
    return {fitting.width() + (fitting.height() < contents.height() ? bar : 0), fitting.height()};
}

/// Texts that wrap say how high they are only when they know their width.
QSize ScreenScroll::sizeOfContents() const {
    const QSize size = widget()->minimumSizeHint();
    return size.expandedTo({0, widget()->heightForWidth(size.width())});
}

bool ScreenScroll::eventFilter(QObject* object, QEvent* event) {
    const bool handled = QScrollArea::eventFilter(object, event);
    if (object == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return handled;
}

}  // namespace kalmo
