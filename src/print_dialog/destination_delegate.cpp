#include "print_dialog/destination_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

#include "print_dialog/destination_model.h"
#include "print_dialog/window_texts.h"

namespace kalmo {
namespace {

constexpr int kMargin = 8, kLineGap = 2, kPadding = 5;
constexpr int kLeastCharacters = 56;

/// With five points in a circle of that radius.
QPainterPath Star(QPointF center, double radius) {
    constexpr double kInner = 0.45;
    QPolygonF corners;
    for (int i = 0; i < 10; ++i) {
        const double angle = std::numbers::pi * (i / 5.0 - 0.5);
        const double reach = i % 2 == 0 ? radius : radius * kInner;
        corners.append(center + QPointF(std::cos(angle), std::sin(angle)) * reach);
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QColor Mixed(const QColor& text, const QColor& back) {
    return {(3 * text.red() + back.red()) / 4, (3 * text.green() + back.green()) / 4,
            (3 * text.blue() + back.blue()) / 4};
}

struct Colors {
    QColor text, note;
};
Colors ColorsOf(const QStyleOptionViewItem& option) {
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const QColor text = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor back = option.palette.color(selected ? QPalette::Highlight : QPalette::Base);
    return {text, selected ? text : Mixed(text, back)};
}

void DrawStar(QPainter& painter, const QRect& area, bool filled, const Colors& colors) {
    const double radius = std::min(area.width(), area.height()) * 0.3;
    const QPainterPath star = Star(QRectF(area).center(), radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(filled ? colors.text : colors.note, 1.2));
    painter.setBrush(filled ? QBrush(colors.text) : QBrush(Qt::NoBrush));
    painter.drawPath(star);
}

/// `line` without `width` at its end.
QRect Shortened(const QRect& line, int width, Qt::LayoutDirection direction) {
    return direction == Qt::RightToLeft ? line.adjusted(width, 0, 0, 0)
                                        : line.adjusted(0, 0, -width, 0);
}

struct Place {
    QRect rect;
    Qt::LayoutDirection direction;

    void draw(QPainter& painter, const QString& text, Qt::Alignment alignment) const {
        const QString fitting =
            painter.fontMetrics().elidedText(text, Qt::ElideRight, rect.width());
        painter.drawText(rect, static_cast<int>(QStyle::visualAlignment(direction, alignment)),
                         fitting);
    }
};

/// The name and, below it, the status; a name alone stands in the middle.
void DrawLines(QPainter& painter, const Place& row, const Colors& colors,
               const QModelIndex& index) {
    const QString status = index.data(DestinationModel::kStatusRole).toString();
    Place line{row.rect.adjusted(kMargin, kPadding, -kMargin, -kPadding), row.direction};
    if (!status.isEmpty()) line.rect.setHeight(painter.fontMetrics().height());
    painter.setPen(colors.note);
    Place{line.rect.translated(0, line.rect.height() + kLineGap), row.direction}.draw(
        painter, status, Qt::AlignLeading | Qt::AlignVCenter);
    if (index.data(DestinationModel::kRecentRole).toBool()) {
        const QString recent = WindowText("Recent printer");
        line.draw(painter, recent, Qt::AlignTrailing | Qt::AlignVCenter);
        const int width = painter.fontMetrics().horizontalAdvance(recent) + kMargin;
        line.rect = Shortened(line.rect, width, row.direction);
    }
    painter.setPen(colors.text);
    line.draw(painter, index.data().toString(), Qt::AlignLeading | Qt::AlignVCenter);
}

}  // namespace

QRect DestinationDelegate::starArea(const QRect& area, Qt::LayoutDirection direction) {
    const int side = area.height();
    return {direction == Qt::RightToLeft ? area.left() : area.right() - side + 1, area.top(), side,
            side};
}

void DestinationDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    painter->save();
    if (index.data(DestinationModel::kStartsGroupRole).toBool()) {
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    }
    const Colors colors = ColorsOf(option);
    const QRect star = starArea(option.rect, option.direction);
    const QVariant favorite = index.data(DestinationModel::kFavoriteRole);
    if (favorite.isValid()) DrawStar(*painter, star, favorite.toBool(), colors);
    painter->setFont(option.font);
    DrawLines(*painter, {Shortened(option.rect, star.width(), option.direction), option.direction},
              colors, index);
    painter->restore();
}

QSize DestinationDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.fontMetrics.averageCharWidth() * kLeastCharacters,
            2 * (option.fontMetrics.height() + kPadding) + kLineGap};
}

}  // namespace kalmo
