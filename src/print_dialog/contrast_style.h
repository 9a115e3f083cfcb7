// Controls with outlines in the colour of their text, for those who need contrast.
#pragma once

#include <QProxyStyle>

namespace kalmo {

class ContrastStyle final : public QProxyStyle {
    Q_OBJECT
public:
    ContrastStyle() : QProxyStyle("Fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

}  // namespace kalmo
