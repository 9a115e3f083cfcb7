#include "toolbox/picture_control.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

#include "toolbox/drawing.h"
#include "toolbox/event_way.h"

namespace toolbox {
namespace {

constexpr qreal kOpacityWhenDisabled = 0.4;

QAccessibleInterface* DescribeAsPicture(const QString&, QObject* object) {
    auto* const picture = qobject_cast<PictureControl*>(object);
    return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

}  // namespace

PictureControl::PictureControl(QWidget* parent) : QWidget(parent) {
    static const bool installed = (QAccessible::installFactory(DescribeAsPicture), true);
    Q_UNUSED(installed);
}

QSize PictureControl::sizeHint() const { return {64, 64}; }

void PictureControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(kOpacityWhenDisabled);
    OpaqueDrawing drawing{painter, palette()};
    OpaqueEvent event{kEventClassControl, kEventControlDraw, this, 0, &drawing};
    SendEvent(*this, event);
}

bool PictureControl::event(QEvent* event) {
    const QEvent::Type type = event->type();
    const bool endsHold = type == QEvent::Hide || type == QEvent::WindowBlocked ||
                          (type == QEvent::EnabledChange && !isEnabled());
    const QPointer<PictureControl> alive = this;
    if (endsHold) letGo();
    return !alive || QWidget::event(event);
}

void PictureControl::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    hold_ = Hold::asked;
    place_ = event->position().toPoint();
    const QPointer<PictureControl> alive = this;
    const bool isWanted = send(kEventMouseDown) != eventNotHandledErr;
    event->setAccepted(isWanted);
    if (!alive) return;
    const bool isLost = hold_ == Hold::lost;
    hold_ = isWanted ? Hold::held : Hold::none;
    if (isLost) letGo();
}

void PictureControl::mouseMoveEvent(QMouseEvent* event) {
    if (hold_ != Hold::held) return event->ignore();
    place_ = event->position().toPoint();
    send(kEventMouseDragged);
}

void PictureControl::mouseReleaseEvent(QMouseEvent* event) {
    if (hold_ != Hold::held || event->button() != Qt::LeftButton) return event->ignore();
    place_ = event->position().toPoint();
    letGo();
}

void PictureControl::letGo() {
    if (hold_ == Hold::asked) hold_ = Hold::lost;
    if (hold_ != Hold::held) return;
    hold_ = Hold::none;
    send(kEventMouseUp);
}

OSStatus PictureControl::send(UInt32 kind) {
    OpaqueEvent event{kEventClassMouse, kind, this};
    event.mousePlace = place_;
    return SendEvent(*this, event);
}

}  // namespace toolbox
