// A button that shows a color and lets the user choose another.
#pragma once

#include <QPushButton>

#include "toolbox/controls.h"

namespace toolbox {

/// Drawn like the popups beside it, with a swatch in place of their text. Its accessible
/// description says the color.
class ColorWell final : public QPushButton {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    /// Kept exactly as set.
    [[nodiscard]] const ControlColor& color() const { return color_; }
    /// Clamps.
    void setColor(const ControlColor& color);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// By the user, and it differs from the color before.
    void colorChosen();

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Return and Enter press it too.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose();

    ControlColor color_;
};

}  // namespace toolbox
