#include "print_dialog/sheet_view.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

namespace kalmo {
namespace {

constexpr double kDeskEdge = 14;
constexpr int kToTheEnd = std::numeric_limits<int>::max();
constexpr int kWheelStep = 120;

struct TurnKey {
    int key;
    int sheets;
};
constexpr TurnKey kTurnKeys[] = {
    {Qt::Key_PageUp, -1},       {Qt::Key_PageDown, 1},    {Qt::Key_Up, -1},
    {Qt::Key_Down, 1},          {Qt::Key_Left, -1},       {Qt::Key_Right, 1},
    {Qt::Key_Home, -kToTheEnd}, {Qt::Key_End, kToTheEnd},
};

QRectF Placed(const SheetBox& box, double scale, QPointF origin) {
    return {origin.x() + box.x * scale, origin.y() + box.y * scale, box.width * scale,
            box.height * scale};
}

QAccessibleInterface* DescribeAsPicture(const QString&, QObject* object) {
    auto* const view = qobject_cast<SheetView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

}  // namespace

SheetView::SheetView(QWidget* parent) : QWidget(parent) {
    static const bool installed = (QAccessible::installFactory(DescribeAsPicture), true);
    Q_UNUSED(installed);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SheetView::showSheet(const Sheet& sheet, const QString& message) {
    sheet_ = sheet;
    picture_ = {};
    message_ = message;
    update();
}

void SheetView::showPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

QRectF SheetView::sheetRect() const {
    const QRectF desk = QRectF(rect()).adjusted(kDeskEdge, kDeskEdge, -kDeskEdge, -kDeskEdge);
    if (sheet_.width <= 0 || sheet_.height <= 0 || desk.isEmpty()) return {};
    const QSizeF size =
        QSizeF(sheet_.width, sheet_.height).scaled(desk.size(), Qt::KeepAspectRatio);
    // On whole pixels, so that the sheet's edges are sharp.
    const QPointF corner = desk.center() - QPointF(size.width(), size.height()) / 2;
    return QRectF(corner.toPoint(), size.toSize());
}

double SheetView::pixelsPerPoint() const {
    return sheet_.width > 0 ? sheetRect().width() / sheet_.width * devicePixelRatioF() : 0;
}

void SheetView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool dark = palette().window().color().lightness() < 128;
    painter.setBrush(dark ? palette().window().color().darker(135)
                          : palette().window().color().darker(108));
    painter.drawRoundedRect(rect(), 6, 6);
    if (!message_.isEmpty()) {
        paintMessage(painter);
    } else if (!sheetRect().isEmpty()) {
        paintSheet(painter);
    }
    if (!hasFocus()) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().highlight().color(), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}

void SheetView::paintSheet(QPainter& painter) const {
    const QRectF paper = sheetRect();
    for (int depth = 4; depth > 0; --depth) {
        painter.setBrush(QColor(0, 0, 0, 14));
        painter.drawRoundedRect(paper.adjusted(-depth, 1 - depth, depth, depth + 1), depth, depth);
    }
    painter.fillRect(paper, Qt::white);
    if (picture_.isNull()) {
        paintPlaces(painter, paper);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(paper, picture_);
    }
    paintMargins(painter, paper);
}

void SheetView::paintPlaces(QPainter& painter, const QRectF& paper) const {
    const double scale = paper.width() / sheet_.width;
    for (const PlacedPage& page : sheet_.pages) {
        painter.fillRect(Placed(page.box, scale, paper.topLeft()), QColor(0xf1, 0xf4, 0xf7));
    }
}

/// What lies outside these corners, the printer cannot reach.
void SheetView::paintMargins(QPainter& painter, const QRectF& paper) const {
    const QRectF area = Placed(sheet_.imageable, paper.width() / sheet_.width, paper.topLeft());
    if (area.width() >= paper.width() - 1 && area.height() >= paper.height() - 1) return;
    QPen pen(QColor(0x46, 0x59, 0x6b, 90), 1, Qt::CustomDashLine);
    pen.setDashPattern({2, 3});
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.toAlignedRect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::NoPen);
}

void SheetView::paintMessage(QPainter& painter) const {
    painter.setPen(palette().windowText().color());
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap,
                     message_);
}

void SheetView::resizeEvent(QResizeEvent*) { Q_EMIT resized(); }

void SheetView::keyPressEvent(QKeyEvent* event) {
    const auto* key = std::ranges::find(kTurnKeys, event->key(), &TurnKey::key);
    if (key == std::end(kTurnKeys) || event->modifiers().testFlag(Qt::AltModifier)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const bool mirrored = layoutDirection() == Qt::RightToLeft &&
                          (key->key == Qt::Key_Left || key->key == Qt::Key_Right);
    Q_EMIT turned(mirrored ? -key->sheets : key->sheets);
}

/// Turning pages changes no setting, so the wheel may do it.
void SheetView::wheelEvent(QWheelEvent* event) {
    wheelAngle_ -= event->angleDelta().y();
    const int steps = wheelAngle_ / kWheelStep;
    wheelAngle_ -= steps * kWheelStep;
    if (steps != 0) Q_EMIT turned(steps);
    event->accept();
}

}  // namespace kalmo
