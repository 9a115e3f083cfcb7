// A round control whose pointer shows a direction.
#pragma once

#include <QDial>

namespace toolbox {

/// Its value is the angle in degrees counter-clockwise from pointing right, as a line of text runs;
/// -180 to 180 unless set. A turn goes on past the end of a full circle at its other end, and stops
/// at the nearer end of a smaller range. Shift turns in steps of 15.
class AngleDial final : public QDial {
    Q_OBJECT

public:
    explicit AngleDial(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Up and Right turn on, Down and Left back, Home to 0.
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void turnTo(qint64 degrees);
    void turnTo(const QMouseEvent& mouse);

    int turned_ = 0;  // by the wheel, short of a whole step
};

}  // namespace toolbox
