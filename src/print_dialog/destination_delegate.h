// How a printer is drawn in the list: its name, below that its status, and a star to mark it with.
#pragma once

#include <QStyledItemDelegate>

namespace kalmo {

/// For rows of a DestinationModel.
class DestinationDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where in the row `area` a press is meant for the star.
    [[nodiscard]] static QRect starArea(const QRect& area, Qt::LayoutDirection direction);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// The same for all rows.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

}  // namespace kalmo
