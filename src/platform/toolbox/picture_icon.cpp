#include "toolbox/picture_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QStyle>
#include <QStyleOption>

namespace toolbox {
namespace {

class PictureIconEngine final : public QIconEngine {
public:
    explicit PictureIconEngine(std::shared_ptr<Picture> picture) : picture_(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode, QIcon::State) override {
        DrawToFit(*painter, *picture_, place);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        painter.end();
        if (mode != QIcon::Disabled) return drawn;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PictureIconEngine(picture_); }

private:
    std::shared_ptr<Picture> picture_;
};

}  // namespace

QIcon MakeIcon(std::shared_ptr<Picture> picture) {
    return QIcon(new PictureIconEngine(std::move(picture)));
}

}  // namespace toolbox
