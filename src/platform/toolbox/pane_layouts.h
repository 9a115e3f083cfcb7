// How views that were moved into a parent keep their place in it when sizes and texts change.
//
// Both are layouts like any other: what they hold sets the parent's least size, and so on up to the
// window.
#pragma once

#include <QLayout>
#include <QMargins>
#include <QVBoxLayout>
#include <memory>
#include <vector>

namespace toolbox {

/// Panes that keep their distances to the four edges, one over the other; hidden ones keep their
/// room, so that changing panes does not change the window. Views beside them stay as they are, and
/// the parent does not become smaller than they reach.
class AnchorLayout final : public QLayout {
public:
    using QLayout::QLayout;
    ~AnchorLayout() override;

    /// From its present place in the parent's present size; an edge that it passes counts as
    /// reached. A parent that has not got a size yet is filled.
    void anchor(QWidget& pane);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    [[nodiscard]] QLayoutItem* takeAt(int index) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Anchored {
        std::unique_ptr<QLayoutItem> item;
        QMargins distances;
        QSize designed;
    };

    std::vector<Anchored> panes_;
};

/// Rows over the whole width, from the top, each as high as it wants; the labels at their front
/// share one width, no less than any row was drawn with, and end at one line.
class SectionColumn final : public QVBoxLayout {
public:
    explicit SectionColumn(QWidget* pane);

    /// `row` stands at `place` in the pane as drawn; the gap to what is drawn above is kept.
    void append(QWidget& row, const QRect& place);

    void invalidate() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;

private:
    void lineUpLabels() const;

    int drawnBottom_ = 0;
    int drawnLabelWidth_ = 0;
    mutable bool linedUp_ = false;
};

}  // namespace toolbox
