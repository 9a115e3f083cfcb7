// One sheet on a desk: the picture, or what stands in its place until it comes.
#pragma once

#include <QImage>
#include <QWidget>

#include "print_dialog/sheet_layout.h"

namespace kalmo {

class SheetView final : public QWidget {
    Q_OBJECT
public:
    explicit SheetView(QWidget* parent = nullptr);

    /// The outline is shown at once, the picture of another sheet no longer. In place of a sheet
    /// `message`, unless it is empty.
    void showSheet(const Sheet& sheet, const QString& message);
    /// Of the sheet shown.
    void showPicture(const QImage& picture);

    /// Device pixels per point at which the sheet fills the view.
    [[nodiscard]] double pixelsPerPoint() const;
    /// Where the sheet lies, in the view's coordinates; for tests too.
    [[nodiscard]] QRectF sheetRect() const;
    [[nodiscard]] QSize sizeHint() const override { return {330, 440}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {260, 220}; }

Q_SIGNALS:
    /// The view has another size: a new picture is due.
    void resized();
    /// Pages to turn, forwards or back; a large number leads to the end.
    void turned(int sheets);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void paintSheet(QPainter& painter) const;
    void paintPlaces(QPainter& painter, const QRectF& paper) const;
    void paintMargins(QPainter& painter, const QRectF& paper) const;
    void paintMessage(QPainter& painter) const;

    Sheet sheet_;
    QImage picture_;
    QString message_;
    int wheelAngle_ = 0;
};

}  // namespace kalmo
