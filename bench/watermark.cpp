// The preview of a watermark, from a change to its repainted frame: through WatermarkPreview, and
// the same work with cairo, pango and the PDF reader alone. Argument: the preview's height in
// pixels.
#include <benchmark/benchmark.h>
#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <QApplication>
#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>
#include <cstring>

#include "preview_window.h"
#include "watermark/watermark_preview.h"

namespace {

using namespace kalmo::bench;

constexpr QSizeF kPage(kPageWidth, kPageHeight);

/// What both ways draw: a text that turns, or the photograph at a size that changes.
struct Change {
    int step = 0;
    int leastScale = 13;  // the whole photograph lies on the page

    void next() { step = (step + 1) % 4; }
    [[nodiscard]] int angle() const { return 40 + step; }
    [[nodiscard]] int scale() const { return leastScale + step; }
};

void Preview(benchmark::State& state, const char* text, int leastScale) {
    kalmo::WatermarkPreview preview([](const kalmo::_WatermarkData&, OSStatus status) {
        if (status != noErr) throw std::runtime_error("the watermark cannot be drawn");
    });
    PreviewWindow window(preview, static_cast<int>(state.range(0)));
    kalmo::WatermarkHolder record;
    kalmo::setDefaultValues(*record, 0);
    std::strcpy(record->textString, text);
    std::strcpy(record->filename, "photograph.jpg");
    std::strcpy(record->filePath, Photograph().toUtf8().constData());
    Change change{.leastScale = leastScale};
    const auto show = [&] {
        change.next();
        record->angle = change.angle();
        record->scale = change.scale();
        window.show([&] { preview.show(*record, kalmo::kDefaultWatermarkPage); });
    };
    show();
    for (auto _ : state) show();
}

/// The same by hand.
class BareWindow final : public QWidget {
public:
    explicit BareWindow(int height) {
        pango_cairo_context_set_resolution(context_, 72);
        layout_ = pango_layout_new(context_);
        PangoFontDescription* const font = pango_font_description_from_string("Liberation Sans");
        pango_font_description_set_absolute_size(font, 72 * PANGO_SCALE);
        pango_layout_set_font_description(layout_, font);
        pango_font_description_free(font);
        resize(height * 612 / 792, height);
        show();
        QCoreApplication::processEvents();
    }
    ~BareWindow() override {
        g_object_unref(layout_);
        g_object_unref(context_);
    }

    /// Decoded once, to the pixels of the page.
    void setPicture(const QString& path) {
        QImageReader reader(path);
        full_ = reader.size();
        reader.setScaledSize(full_.scaled(size(), Qt::KeepAspectRatio));
        picture_ = reader.read().convertToFormat(QImage::Format_RGB32);
        QBuffer buffer(&jpeg_);
        picture_.save(&buffer, "jpeg", 90);
    }

    void show(const Change& change, const char* text) {
        bytes_.clear();
        writePage(change, text);
        QBuffer buffer(&bytes_);
        buffer.open(QIODevice::ReadOnly);
        QPdfDocument document(nullptr);
        document.load(&buffer);
        page_ = document.render(0, size());
        repaint();
    }
    using QWidget::show;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.drawImage(0, 0, page_);
    }

private:
    void writePage(const Change& change, const char* text) {
        const auto write = [](void* bytes, const unsigned char* part, unsigned count) {
            static_cast<QByteArray*>(bytes)->append(reinterpret_cast<const char*>(part),
                                                    static_cast<qsizetype>(count));
            return CAIRO_STATUS_SUCCESS;
        };
        cairo_surface_t* const surface =
            cairo_pdf_surface_create_for_stream(write, &bytes_, kPage.width(), kPage.height());
        cairo_t* const cairo = cairo_create(surface);
        cairo_set_source_rgb(cairo, 1, 1, 1);
        cairo_paint(cairo);
        text ? drawText(cairo, change.angle(), text) : drawPicture(cairo, change.scale() / 100.0);
        cairo_show_page(cairo);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }

    void drawText(cairo_t* cairo, int angle, const char* text) {
        pango_layout_set_text(layout_, text, -1);
        PangoLayoutLine* const line = pango_layout_get_line_readonly(layout_, 0);
        cairo_save(cairo);
        cairo_rotate(cairo, -angle * M_PI / 180);
        cairo_move_to(cairo, 0, 0);
        pango_cairo_layout_line_path(cairo, line);
        cairo_restore(cairo);
        double left = 0, top = 0, right = 0, bottom = 0;
        cairo_path_extents(cairo, &left, &top, &right, &bottom);
        cairo_new_path(cairo);
        cairo_push_group(cairo);
        cairo_set_source_rgb(cairo, 0, 0, 1);
        cairo_translate(cairo, (kPage.width() - left - right) / 2,
                        (kPage.height() - top - bottom) / 2);
        cairo_rotate(cairo, -angle * M_PI / 180);
        cairo_move_to(cairo, 0, 0);
        pango_cairo_show_layout_line(cairo, line);
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, 0.25);
    }

    void drawPicture(cairo_t* cairo, double scale) {
        cairo_surface_t* const surface = cairo_image_surface_create_for_data(
            picture_.bits(), CAIRO_FORMAT_RGB24, picture_.width(), picture_.height(),
            static_cast<int>(picture_.bytesPerLine()));
        cairo_surface_set_mime_data(surface, CAIRO_MIME_TYPE_JPEG,
                                    reinterpret_cast<const unsigned char*>(jpeg_.constData()),
                                    static_cast<unsigned long>(jpeg_.size()), nullptr, nullptr);
        const QSizeF drawn = QSizeF(full_) * scale;
        cairo_translate(cairo, (kPage.width() - drawn.width()) / 2,
                        (kPage.height() - drawn.height()) / 2);
        cairo_scale(cairo, drawn.width() / picture_.width(), drawn.height() / picture_.height());
        cairo_set_source_surface(cairo, surface, 0, 0);
        cairo_paint(cairo);
        cairo_surface_destroy(surface);
    }

    PangoContext* context_ = pango_font_map_create_context(pango_cairo_font_map_get_default());
    PangoLayout* layout_ = nullptr;
    QSize full_;
    QImage picture_, page_;
    QByteArray jpeg_, bytes_;
};

void Bare(benchmark::State& state, const char* text, int leastScale) {
    BareWindow window(static_cast<int>(state.range(0)));
    window.setPicture(Photograph());
    Change change{.leastScale = leastScale};
    for (auto _ : state) {
        change.next();
        window.show(change, text);
    }
}

void AtBothSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(388)->Arg(776)->Unit(benchmark::kMillisecond)->MinTime(2);
    // Real time is what the user waits; the preview works on two threads.
    benchmark->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK_CAPTURE(Bare, Text, "CONFIDENTIAL", 13)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Preview, Text, "CONFIDENTIAL", 13)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Bare, Photograph, nullptr, 13)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Preview, Photograph, "", 13)->Apply(AtBothSizes);
/// The photograph as it is first seen, many pages large: each step shows another part.
BENCHMARK_CAPTURE(Preview, PhotographBeyondThePage, "", 98)->Apply(AtBothSizes);

}  // namespace
