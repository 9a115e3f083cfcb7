// A picture control that is all one preview.
#pragma once

#include "platform/toolbox/interface.h"
#include "watermark/page_preview.h"

namespace kalmo::test {

/// Outlives no preview that it shows.
class PreviewView {
public:
    PreviewView(int width, int height)
        : interface_(WindowFile(WidgetText("PictureControl", 1, Geometry(0, 0, width, height)))) {
        const EventTypeSpec type = {kEventClassControl, kEventControlDraw};
        const auto draw = [](EventHandlerCallRef, EventRef event, void* self) {
            return static_cast<PreviewView*>(self)->shown->draw(event);
        };
        InstallControlEventHandler(control(), draw, 1, &type, this, nullptr);
    }

    [[nodiscard]] ControlRef control() const { return interface_.control(1); }
    [[nodiscard]] QWidget* widget() const { return interface_.widget(1); }
    /// What it draws on white.
    [[nodiscard]] QImage drawn() const {
        QImage image(widget()->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        widget()->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    PagePreview* shown = nullptr;

private:
    Interface interface_;
};

}  // namespace kalmo::test
