#include "toolbox/angle_dial.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace toolbox {
namespace {

constexpr int kSide = 56;
constexpr int kFullCircle = 360;
constexpr int kCoarseStep = 15;
/// Nearer to the middle than this the mouse points nowhere.
constexpr qreal kDeadRadius = 2;

constexpr qreal kRimInset = 2.5;  // leaves room for the focus ring
constexpr qreal kRimOpacity = 0.35, kTickOpacity = 0.3, kSectorOpacity = 0.16;
constexpr int kTickAngle = 45;
constexpr qreal kTickOuter = 3, kTickInner = 6;  // from the rim
constexpr qreal kKnobInset = 9, kKnobRadius = 4, kHubRadius = 2, kPointerWidth = 2;

struct KeyRow {
    Qt::Key key;
    int degrees;
};
constexpr KeyRow kTurns[] = {
    {Qt::Key_Up, 1},
    {Qt::Key_Right, 1},
    {Qt::Key_Down, -1},
    {Qt::Key_Left, -1},
    {Qt::Key_PageUp, kCoarseStep},
    {Qt::Key_PageDown, -kCoarseStep},
};

QColor Faded(QColor color, qreal opacity) {
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

QPointF Place(const QPointF& centre, qreal degrees, qreal radius) {
    const qreal radians = degrees * std::numbers::pi / 180;
    return centre + QPointF(std::cos(radians), -std::sin(radians)) * radius;
}

/// The same direction within the range, or the end of the range that is nearer to it.
int Within(qint64 degrees, qint64 minimum, qint64 maximum) {
    const qint64 wrapped = degrees + (degrees < minimum ? kFullCircle : -kFullCircle);
    if (degrees >= minimum && degrees <= maximum) return static_cast<int>(degrees);
    if (wrapped >= minimum && wrapped <= maximum) return static_cast<int>(wrapped);
    const qint64 below = std::min(degrees, wrapped), above = std::max(degrees, wrapped);
    return static_cast<int>(minimum - below < above - maximum ? minimum : maximum);
}

/// The angle of the same direction that takes the shortest turn from `value`.
qint64 Nearest(qreal degrees, int value) {
    return value + std::llround(std::remainder(degrees - value, kFullCircle));
}

}  // namespace

AngleDial::AngleDial(QWidget* parent) : QDial(parent) {
    setRange(-kFullCircle / 2, kFullCircle / 2);
    setPageStep(kCoarseStep);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize AngleDial::sizeHint() const { return {kSide, kSide}; }

void AngleDial::turnTo(qint64 degrees) { setSliderPosition(Within(degrees, minimum(), maximum())); }

void AngleDial::turnTo(const QMouseEvent& mouse) {
    const QPointF way = mouse.position() - QRectF(rect()).center();
    if (std::hypot(way.x(), way.y()) < kDeadRadius) return;
    qreal degrees = std::atan2(-way.y(), way.x()) * 180 / std::numbers::pi;
    if (mouse.modifiers() & Qt::ShiftModifier)
        degrees = std::round(degrees / kCoarseStep) * kCoarseStep;
    turnTo(Nearest(degrees, value()));
}

void AngleDial::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    setSliderDown(true);
    turnTo(*event);
}

void AngleDial::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown()) turnTo(*event);
}

void AngleDial::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) setSliderDown(false);
}

void AngleDial::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home) return turnTo(0);
    const auto* const turn = std::ranges::find(kTurns, event->key(), &KeyRow::key);
    if (turn == std::end(kTurns)) return QDial::keyPressEvent(event);
    turnTo(qint64{value()} + turn->degrees);
}

void AngleDial::wheelEvent(QWheelEvent* event) {
    turned_ += event->angleDelta().y();
    turnTo(qint64{value()} + turned_ / QWheelEvent::DefaultDeltasPerStep);
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
}

void AngleDial::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(rect()).center();
    const qreal radius = std::min(width(), height()) / 2.0 - kRimInset;
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor ink = palette().color(QPalette::WindowText);

    if (hasFocus()) {
        painter.setPen(QPen(Faded(accent, 0.4), 3));
        painter.drawEllipse(centre, radius, radius);
    }
    painter.setPen(QPen(hasFocus() ? accent : Faded(ink, kRimOpacity), 1));
    painter.setBrush(palette().color(isEnabled() ? QPalette::Base : QPalette::Window));
    painter.drawEllipse(centre, radius, radius);

    painter.setPen(QPen(Faded(ink, kTickOpacity), 1));
    for (int angle = 0; angle < kFullCircle; angle += kTickAngle) {
        painter.drawLine(Place(centre, angle, radius - kTickOuter),
                         Place(centre, angle, radius - kTickInner));
    }

    const qreal length = radius - kKnobInset;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Faded(accent, kSectorOpacity));
    const QRectF sector(centre - QPointF(length, length), QSizeF(length, length) * 2);
    painter.drawPie(sector, 0, value() % kFullCircle * 16);

    painter.setPen(QPen(accent, kPointerWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre, Place(centre, value(), length));
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    painter.drawEllipse(centre, kHubRadius, kHubRadius);
    painter.drawEllipse(Place(centre, value(), length), kKnobRadius, kKnobRadius);
}

}  // namespace toolbox
