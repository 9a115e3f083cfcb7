// A small control with an up and a down half, beside the field that shows its value.
#pragma once

#include <QBasicTimer>
#include <QStyleOptionSpinBox>
#include <QWidget>

#include "toolbox/controls.h"

namespace toolbox {

/// Pressing it calls its action and nothing else: the action changes the value. Tab passes over it,
/// since the field beside it does the same with keys.
class SpinArrows final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(int value READ value WRITE setValue)

public:
    explicit SpinArrows(QWidget* parent = nullptr);

    [[nodiscard]] int minimum() const { return minimum_; }
    [[nodiscard]] int maximum() const { return maximum_; }
    [[nodiscard]] int value() const { return value_; }
    void setMinimum(int minimum);
    void setMaximum(int maximum);
    /// The value follows when it no longer lies within.
    void setRange(int minimum, int maximum);
    /// Clamps.
    void setValue(int value);

    /// One press, by whatever means.
    void press(SInt16 part);
    /// Sets the value a step away from `value` and presses it there, for the action shows what it
    /// reaches. Nothing without an action.
    void pressOnto(int value);
    /// At least 1.
    [[nodiscard]] int stepSize() const;

    /// As wide as the buttons of a spin box, as high as a field.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// The spin box whose end shows, at rest. It begins at 0, 0: some styles disregard the origin.
    [[nodiscard]] QStyleOptionSpinBox wholeBox() const;
    /// Where the spin box begins, from the control's left edge.
    [[nodiscard]] QPoint origin() const;
    /// 0 beside both halves.
    [[nodiscard]] SInt16 partAt(const QPoint& point) const;
    [[nodiscard]] bool isHeldInside() const;
    void release();

    int minimum_ = 0, maximum_ = 100, value_ = 0;
    SInt16 held_ = 0;  // the half that the mouse went down in
    QPoint pointer_;   // while held
    QBasicTimer repeat_;
    int turned_ = 0;  // by the wheel, short of a whole step
};

}  // namespace toolbox
