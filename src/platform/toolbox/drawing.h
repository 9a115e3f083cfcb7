// What a draw event lends, and what a picture holds.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <memory>

#include "toolbox/pictures.h"

struct OpaqueDrawing {
    QPainter& painter;
    QPalette palette;  // of the drawn control
};

namespace toolbox {

/// A drawing or a raster picture; drawn at the resolution of what it is drawn on.
class Picture {
public:
    virtual ~Picture() = default;
    [[nodiscard]] virtual QSize size() const = 0;
    /// `bounds` have the picture's proportions.
    virtual void draw(QPainter& painter, const QRectF& bounds) = 0;
};

/// Draws the picture as large as `bounds` allow, centred.
void DrawToFit(QPainter& painter, Picture& picture, const QRectF& bounds);
/// Null when the bytes are no picture, or one larger than any screen or sheet needs.
[[nodiscard]] std::shared_ptr<Picture> ReadPicture(const QByteArray& bytes);

}  // namespace toolbox

/// Shared, so that a button's icon may outlive the reference.
struct OpaquePicture {
    std::shared_ptr<toolbox::Picture> picture;
};
