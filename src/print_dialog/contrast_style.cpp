#include "print_dialog/contrast_style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <array>

namespace kalmo {
namespace {

constexpr std::array kOutlined = {QStyle::PE_PanelButtonCommand, QStyle::PE_FrameLineEdit,
                                  QStyle::PE_IndicatorCheckBox,  QStyle::PE_Frame,
                                  QStyle::PE_FrameMenu,          QStyle::PE_FrameTabWidget};
constexpr std::array kOutlinedControls = {QStyle::CC_ComboBox, QStyle::CC_SpinBox};
constexpr qreal kLine = 1;
constexpr qreal kFocusLine = 3;

/// Thick in the colour of what is chosen while the control has the focus.
QPen PenFor(const QStyleOption& option) {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const QPalette& palette = option.palette;
    if (isEnabled && option.state.testFlag(QStyle::State_HasFocus))
        return {palette.color(QPalette::Highlight), kFocusLine};
    return {palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText),
            kLine};
}

void DrawOutline(const QStyleOption& option, QPainter& painter) {
    const QPen pen = PenFor(option);
    const qreal inset = pen.widthF() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 2, 2);
    painter.restore();
}

}  // namespace

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (std::ranges::find(kOutlined, element) != kOutlined.end()) DrawOutline(*option, *painter);
    if (element == PE_IndicatorRadioButton) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(PenFor(*option));
        painter->drawEllipse(QRectF(option->rect).adjusted(1, 1, -1, -1));
        painter->restore();
    }
}

void ContrastStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (std::ranges::find(kOutlinedControls, control) != kOutlinedControls.end())
        DrawOutline(*option, *painter);
}

}  // namespace kalmo
