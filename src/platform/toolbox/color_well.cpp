#include "toolbox/color_well.h"

#include <QColorDialog>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainterPath>
#include <QStylePainter>
#include <algorithm>

#include "system/presence.h"
#include "toolbox/control_state.h"
#include "toolbox/qt_dialogs.h"

namespace toolbox {
namespace {

constexpr int kSwatchInset = 5;
constexpr qreal kCornerRadius = 2;
constexpr int kCheckSide = 4;
constexpr QRgb kCheckLight = 0xffffffff, kCheckDark = 0xffc4c8cc;
constexpr qreal kFrameOpacity = 0.45;
constexpr qreal kOpacityWhenDisabled = 0.4;
/// As large as a popup with this in it.
constexpr char kUsualText[] = "#RRGGBB";

/// 0 for what is no number.
float Clamped(float share) { return share > 0 ? std::min(share, 1.0F) : 0; }

QColor ToQColor(const ControlColor& color) {
    return QColor::fromRgbF(color.red, color.green, color.blue, color.alpha);
}

QString Described(const QColor& color) {
    const QString opaque = color.name().toUpper();
    if (color.alpha() == 255) return opaque;
    return QStringLiteral("%1, %2 %").arg(opaque).arg(qRound(color.alphaF() * 100));
}

void DrawChecks(QPainter& painter, const QRect& place) {
    painter.fillRect(place, QColor::fromRgba(kCheckLight));
    for (int y = 0; y * kCheckSide < place.height(); ++y) {
        for (int x = y % 2; x * kCheckSide < place.width(); x += 2) {
            painter.fillRect(place.x() + x * kCheckSide, place.y() + y * kCheckSide, kCheckSide,
                             kCheckSide, QColor::fromRgba(kCheckDark));
        }
    }
}

void DrawSwatch(QPainter& painter, const QRect& place, const QColor& color, QColor frame) {
    QPainterPath outline;
    outline.addRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                           kCornerRadius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(outline);
    if (color.alpha() < 255) DrawChecks(painter, place);
    painter.fillRect(place, color);
    painter.setClipping(false);
    frame.setAlphaF(kFrameOpacity);
    painter.setPen(frame);
    painter.drawPath(outline);
    painter.restore();
}

}  // namespace

ColorWell::ColorWell(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
    setSizePolicy({QSizePolicy::Preferred, QSizePolicy::Fixed, QSizePolicy::ComboBox});
    setColor({});
    connect(this, &QAbstractButton::clicked, this, &ColorWell::choose);
}

void ColorWell::setColor(const ControlColor& color) {
    color_ = {Clamped(color.red), Clamped(color.green), Clamped(color.blue), Clamped(color.alpha)};
    setAccessibleDescription(Described(ToQColor(color_)));
    update();
}

QSize ColorWell::sizeHint() const {
    ensurePolished();
    QComboBox popup;
    popup.setFont(font());
    popup.addItem(kUsualText);
    return popup.sizeHint();
}

void ColorWell::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButton, option);
    if (!isEnabled()) painter.setOpacity(kOpacityWhenDisabled);
    const QRect swatch = rect().adjusted(kSwatchInset, kSwatchInset, -kSwatchInset, -kSwatchInset);
    DrawSwatch(painter, swatch, ToQColor(color_), palette().color(QPalette::ButtonText));
}

void ColorWell::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QPushButton::keyPressEvent(event);
}

void ColorWell::choose() {
    if (!CurrentPresence().modalLoopsRun) return;
    const QPointer<ColorWell> self = this;
    const QColor before = ToQColor(color_);
    DialogOver<QColorDialog> dialog(window());
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    dialog->setCurrentColor(before);
    if (!dialog.run() || !self) return;
    const QColor chosen = dialog->selectedColor();
    if (chosen.rgba() == before.rgba()) return;  // the dialog counts to 255
    setColor({static_cast<float>(chosen.redF()), static_cast<float>(chosen.greenF()),
              static_cast<float>(chosen.blueF()), static_cast<float>(chosen.alphaF())});
    Q_EMIT colorChosen();
}

}  // namespace toolbox

using namespace toolbox;

ControlColor GetControlColor(ControlRef control) {
    const auto* const well = qobject_cast<ColorWell*>(ToWidget(control));
    return well ? well->color() : ControlColor{};
}

void SetControlColor(ControlRef control, const ControlColor& color) {
    if (auto* const well = qobject_cast<ColorWell*>(ToWidget(control))) well->setColor(color);
}
