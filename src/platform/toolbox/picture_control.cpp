#include "toolbox/picture_control.h"

#include <QAccessible>
#include <QAccessibleWidget>
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
    OpaqueDrawing drawing{painter};
    OpaqueEvent event{kEventClassControl, kEventControlDraw, this, 0, &drawing};
    SendEvent(*this, event);
}

}  // namespace toolbox
