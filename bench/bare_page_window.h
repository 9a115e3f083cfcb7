// A page written and read back with cairo, pango and the PDF reader alone: what previews are held
// against.
#pragma once

#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <QApplication>
#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>

#include "preview_window.h"

namespace kalmo::bench {

class BarePageWindow : public QWidget {
public:
    explicit BarePageWindow(int height) {
        pango_cairo_context_set_resolution(context_, 72);
        resize(static_cast<int>(height * kPageWidth / kPageHeight), height);
        QWidget::show();
        QCoreApplication::processEvents();
    }
    ~BarePageWindow() override { g_object_unref(context_); }

    /// Decodes it once, to the pixels of the page.
    void setPicture(const QString& path) {
        QImageReader reader(path);
        full_ = reader.size();
        reader.setScaledSize(full_.scaled(size(), Qt::KeepAspectRatio));
        picture_ = reader.read().convertToFormat(QImage::Format_RGB32);
        QBuffer buffer(&jpeg_);
        picture_.save(&buffer, "jpeg", 90);
    }

protected:
    /// Returns when what `draw` draws is on the screen.
    template <typename Draw>
    void showPage(Draw draw) {
        bytes_.clear();
        const auto write = [](void* bytes, const unsigned char* part, unsigned count) {
            static_cast<QByteArray*>(bytes)->append(reinterpret_cast<const char*>(part),
                                                    static_cast<qsizetype>(count));
            return CAIRO_STATUS_SUCCESS;
        };
        cairo_surface_t* const surface =
            cairo_pdf_surface_create_for_stream(write, &bytes_, kPageWidth, kPageHeight);
        cairo_t* const cairo = cairo_create(surface);
        cairo_set_source_rgb(cairo, 1, 1, 1);
        cairo_paint(cairo);
        draw(cairo);
        cairo_show_page(cairo);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
        QBuffer buffer(&bytes_);
        buffer.open(QIODevice::ReadOnly);
        QPdfDocument document(nullptr);
        document.load(&buffer);
        page_ = document.render(0, size());
        repaint();
    }

    /// In the middle of the page, `scale` points to a pixel.
    void drawPicture(cairo_t* cairo, double scale) {
        cairo_surface_t* const surface = cairo_image_surface_create_for_data(
            picture_.bits(), CAIRO_FORMAT_RGB24, picture_.width(), picture_.height(),
            static_cast<int>(picture_.bytesPerLine()));
        cairo_surface_set_mime_data(surface, CAIRO_MIME_TYPE_JPEG,
                                    reinterpret_cast<const unsigned char*>(jpeg_.constData()),
                                    static_cast<unsigned long>(jpeg_.size()), nullptr, nullptr);
        const QSizeF drawn = QSizeF(full_) * scale;
        cairo_translate(cairo, (kPageWidth - drawn.width()) / 2,
                        (kPageHeight - drawn.height()) / 2);
        cairo_scale(cairo, drawn.width() / picture_.width(), drawn.height() / picture_.height());
        cairo_set_source_surface(cairo, surface, 0, 0);
        cairo_paint(cairo);
        cairo_surface_destroy(surface);
    }

    /// The caller releases it.
    PangoLayout* makeLayout(const char* family, double points, bool isBold = false) {
        PangoLayout* const layout = pango_layout_new(context_);
        PangoFontDescription* const font = pango_font_description_from_string(family);
        pango_font_description_set_absolute_size(font, points * PANGO_SCALE);
        if (isBold) pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
        pango_layout_set_font_description(layout, font);
        pango_font_description_free(font);
        return layout;
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.drawImage(0, 0, page_);
    }

private:
    PangoContext* context_ = pango_font_map_create_context(pango_cairo_font_map_get_default());
    QSize full_;
    QImage picture_, page_;
    QByteArray jpeg_, bytes_;
};

}  // namespace kalmo::bench
