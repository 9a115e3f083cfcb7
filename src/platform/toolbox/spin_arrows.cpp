#include "toolbox/spin_arrows.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cstdlib>

#include "toolbox/control_state.h"
#include "toolbox/event_way.h"
#include "toolbox/spin_arrows_access.h"

namespace toolbox {
namespace {

constexpr int kFirstWaitMs = 300;
constexpr int kRepeatMs = 1000 / 60;
/// Styles draw arrows as the end of a spin box. It lies under the control, with its end showing.
constexpr int kSpinBoxWidth = 200;

QStyle::SubControl SubControlOf(SInt16 part) {
    if (part == kControlUpButtonPart) return QStyle::SC_SpinBoxUp;
    return part == kControlDownButtonPart ? QStyle::SC_SpinBoxDown : QStyle::SC_None;
}

QRect HalfOf(const QWidget& arrows, const QStyleOptionSpinBox& look, SInt16 part) {
    return arrows.style()->subControlRect(QStyle::CC_SpinBox, &look, SubControlOf(part), &arrows);
}

int FieldHeight(const QFont& font) {
    QLineEdit field;
    field.setFont(font);
    return field.sizeHint().height();
}

}  // namespace

SpinArrows::SpinArrows(QWidget* parent) : QWidget(parent) {
    static const bool installed = (QAccessible::installFactory(DescribeSpinArrows), true);
    Q_UNUSED(installed);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SpinArrows::setMinimum(int minimum) { setRange(minimum, std::max(minimum, maximum_)); }

void SpinArrows::setMaximum(int maximum) { setRange(std::min(minimum_, maximum), maximum); }

void SpinArrows::setRange(int minimum, int maximum) {
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    setValue(value_);
}

void SpinArrows::setValue(int value) {
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_) return;
    value_ = value;
    QAccessibleValueChangeEvent change(this, value);
    QAccessible::updateAccessibility(&change);
}

void SpinArrows::press(SInt16 part) { CallAction(*this, part); }

void SpinArrows::pressOnto(int value) {
    const ControlState* const state = FindState(*this);
    if (!state || !state->action || !isEnabled()) return;
    const qint64 below = qint64{value} - stepSize(), above = qint64{value} + stepSize();
    const bool isFromBelow = below >= minimum_;
    setValue(static_cast<int>(isFromBelow ? below : std::min<qint64>(above, maximum_)));
    press(isFromBelow ? kControlUpButtonPart : kControlDownButtonPart);
}

int SpinArrows::stepSize() const {
    SInt32 step = 1;
    GetControlData(ToControl(const_cast<SpinArrows*>(this)), kControlIncrementTag, sizeof step,
                   nullptr, &step);
    return std::max(step, 1);
}

QSize SpinArrows::sizeHint() const {
    ensurePolished();
    QStyleOptionSpinBox box = wholeBox();
    box.direction = Qt::LeftToRight;
    box.rect = {0, 0, kSpinBoxWidth, FieldHeight(font())};
    const QRect halves =
        HalfOf(*this, box, kControlUpButtonPart).united(HalfOf(*this, box, kControlDownButtonPart));
    return {kSpinBoxWidth - halves.left(), box.rect.height()};
}

QStyleOptionSpinBox SpinArrows::wholeBox() const {
    QStyleOptionSpinBox box;
    box.initFrom(this);
    box.rect = {0, 0, std::max(kSpinBoxWidth, width()), height()};
    box.frame = true;
    box.stepEnabled = QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
    box.subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    return box;
}

QPoint SpinArrows::origin() const {
    return {isRightToLeft() ? 0 : width() - wholeBox().rect.width(), 0};
}

SInt16 SpinArrows::partAt(const QPoint& point) const {
    const QStyleOptionSpinBox box = wholeBox();
    for (const SInt16 part : {kControlUpButtonPart, kControlDownButtonPart}) {
        if (HalfOf(*this, box, part).contains(point - origin())) return part;
    }
    return 0;
}

void SpinArrows::paintEvent(QPaintEvent*) {
    QStyleOptionSpinBox box = wholeBox();
    if (isHeldInside()) {
        box.activeSubControls = SubControlOf(held_);
        box.state |= QStyle::State_Sunken;
    }
    QPainter painter(this);
    painter.translate(origin());
    style()->drawComplexControl(QStyle::CC_SpinBox, &box, &painter, this);
}

bool SpinArrows::isHeldInside() const { return held_ != 0 && partAt(pointer_) == held_; }

void SpinArrows::release() {
    held_ = 0;
    repeat_.stop();
    update();
}

bool SpinArrows::event(QEvent* event) {
    switch (event->type()) {
        // The mouse may come up where this control does not learn of it.
        case QEvent::Hide:
        case QEvent::EnabledChange:
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
            release();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void SpinArrows::mousePressEvent(QMouseEvent* event) {
    held_ = event->button() == Qt::LeftButton ? partAt(event->pos()) : SInt16{0};
    if (held_ == 0) return;
    pointer_ = event->pos();
    update();
    repeat_.start(kFirstWaitMs, Qt::PreciseTimer, this);
    press(held_);
}

void SpinArrows::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = event->pos();
    if (held_ != 0) update();
}

void SpinArrows::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) release();
}

void SpinArrows::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat_.timerId()) return;
    repeat_.start(kRepeatMs, Qt::PreciseTimer, this);
    if (isHeldInside()) press(held_);
}

void SpinArrows::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return press(kControlUpButtonPart);
        case Qt::Key_Down:
            return press(kControlDownButtonPart);
        default:
            QWidget::keyPressEvent(event);
    }
}

void SpinArrows::wheelEvent(QWheelEvent* event) {
    if (!hasFocus()) {
        event->ignore();  // it goes on to the view behind
        return;
    }
    turned_ += event->angleDelta().y();
    const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
    const QPointer<SpinArrows> self = this;
    for (int step = 0; self && step < std::abs(steps); ++step) {
        press(steps > 0 ? kControlUpButtonPart : kControlDownButtonPart);
    }
}

}  // namespace toolbox
