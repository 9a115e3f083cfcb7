// The preview of a fax cover sheet, from a keystroke in its notes to the repainted frame: through
// FaxCoverPreview, and the same work with cairo, pango and the PDF reader alone. Arguments: the
// number of recipients, and the preview's height in pixels.
#include <benchmark/benchmark.h>
#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <QApplication>
#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>
#include <cstring>

#include "fax/cover_preview.h"
#include "fax/fax_options.h"
#include "preview_window.h"
#include "watermark/watermark_store.h"

namespace {

using namespace kalmo;
using namespace kalmo::bench;

enum class Image { none, text, photograph };
constexpr SInt32 kDensity = 30, kScale = 15;  // the whole photograph lies on the page
constexpr double kMargin = 31, kFirstLine = 103, kGap = 12;

std::string Name(int index) { return "Recipient Number" + std::to_string(index); }
std::string Notes(int step) { return "Please call me back" + std::string(step % 40, '!'); }

Owned<CFStringRef> Text(const std::string& text) {
    return Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(text));
}

Owned<CFBundleRef> Product() {
    const auto url = Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(
        nullptr, Text(KALMO_BINARY_DIR "/KalmoFeatures.plugin"), true));
    return Owned<CFBundleRef>::Adopt(CFBundleCreate(nullptr, url));
}

/// The image's name in a store of its own.
CFStringRef StoredImage(Image image) {
    setenv("XDG_CONFIG_HOME", Folder().path().toUtf8(), 1);
    WatermarkHolder record;
    setDefaultValues(*record, 0);
    record->density = kDensity;
    record->scale = kScale;
    record->textMode = image == Image::text;
    if (image == Image::text) std::strcpy(record->textString, "CONFIDENTIAL");
    std::strcpy(record->filename, "photograph.jpg");
    std::strcpy(record->filePath, Photograph().toUtf8().constData());
    saveWatermarkData(kFaxImageStore, *record);
    return image == Image::text ? CFSTR("CONFIDENTIAL") : CFSTR("photograph.jpg");
}

/// What the dialog holds.
struct Dialog {
    Dialog(int recipients, Image image) {
        for (int i = 0; i < recipients; ++i) {
            auto* const recipient =
                new FaxRecipient(CFSTR("Recipient"), Text("Number" + std::to_string(i)), nullptr);
            list.append(recipient);
            FaxRecipientRelease(recipient);
        }
        CFDictionarySetValue(options, kFaxShowSenderProperty, kCFBooleanTrue);
        CFDictionarySetValue(options, kFaxSenderNameProperty, CFSTR("Ann Example"));
        if (image != Image::none)
            CFDictionarySetValue(options, kFaxWatermarkNameProperty, StoredImage(image));
    }

    CoverSheetState stateWith(CFStringRef notes) const {
        return {bundle, options, &list, notes, 2};
    }

    Owned<CFBundleRef> bundle = Product();
    FaxRecipientList list;
    Owned<CFMutableDictionaryRef> options =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(nullptr, 0));
};

void Preview(benchmark::State& state, Image image) {
    FaxCoverPreview preview;
    PreviewWindow window(preview, static_cast<int>(state.range(1)));
    const Dialog dialog(static_cast<int>(state.range(0)), image);
    int step = 0;
    const auto show = [&] {
        const auto notes = Text(Notes(step++));
        window.show([&] { DrawFaxCoverPreview(preview, dialog.stateWith(notes)); });
    };
    show();
    for (auto _ : state) show();
}

/// What of it holds up the window.
void Assemble(benchmark::State& state) {
    const Dialog dialog(static_cast<int>(state.range(0)), Image::photograph);
    FaxCoverPreview nowhere;
    for (auto _ : state) DrawFaxCoverPreview(nowhere, dialog.stateWith(CFSTR("Please call")));
}

/// The same by hand.
class BareWindow final : public QWidget {
public:
    BareWindow(int recipients, int height, Image image) : image_(image) {
        for (int i = 0; i < recipients; ++i) names_ += (i ? ", " : "") + Name(i);
        names_.resize(std::min<std::size_t>(names_.size(), 8192));  // more than fits the page
        pango_cairo_context_set_resolution(context_, 72);
        for (const bool bold : {false, true}) {
            layouts_[bold] = pango_layout_new(context_);
            PangoFontDescription* const font = pango_font_description_from_string("Sans");
            pango_font_description_set_absolute_size(font, 12 * PANGO_SCALE);
            if (bold) pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
            pango_layout_set_font_description(layouts_[bold], font);
            pango_font_description_free(font);
            pango_layout_set_wrap(layouts_[bold], PANGO_WRAP_WORD_CHAR);
            pango_layout_set_width(layouts_[bold],
                                   static_cast<int>((kPageWidth - 2 * kMargin) * PANGO_SCALE));
        }
        resize(static_cast<int>(height * kPageWidth / kPageHeight), height);
        if (image == Image::photograph) decode();
        show();
        QCoreApplication::processEvents();
    }
    ~BareWindow() override {
        for (PangoLayout* layout : layouts_) g_object_unref(layout);
        g_object_unref(context_);
    }

    void show(const std::string& notes) {
        bytes_.clear();
        writePage(notes);
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
    /// Once, to the pixels of the page.
    void decode() {
        QImageReader reader(Photograph());
        full_ = reader.size();
        reader.setScaledSize(full_.scaled(size(), Qt::KeepAspectRatio));
        picture_ = reader.read().convertToFormat(QImage::Format_RGB32);
        QBuffer buffer(&jpeg_);
        picture_.save(&buffer, "jpeg", 90);
    }

    void writePage(const std::string& notes) {
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
        cairo_set_source_rgb(cairo, 0, 0, 0);
        double top = kFirstLine;
        for (const auto& [label, text] :
             {std::pair<std::string, std::string>{"From:", "Ann Example\n"},
              {"To:", names_},
              {"Notes:", notes}}) {
            drawText(cairo, layouts_[1], label, top);
            drawText(cairo, layouts_[0], text, top);
            top += kGap;
        }
        if (image_ != Image::none) drawImage(cairo);
        cairo_show_page(cairo);
        cairo_destroy(cairo);
        cairo_surface_destroy(surface);
    }

    static void drawText(cairo_t* cairo, PangoLayout* layout, const std::string& text,
                         double& top) {
        pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
        PangoLayoutIter* const place = pango_layout_get_iter(layout);
        do {
            PangoRectangle line;
            pango_layout_iter_get_line_extents(place, nullptr, &line);
            const double height = static_cast<double>(line.height) / PANGO_SCALE;
            if (top + height > kPageHeight - kMargin) break;
            const int baseline = pango_layout_iter_get_baseline(place) - line.y;
            cairo_move_to(cairo, kMargin, top + static_cast<double>(baseline) / PANGO_SCALE);
            pango_cairo_show_layout_line(cairo, pango_layout_iter_get_line_readonly(place));
            top += height;
        } while (pango_layout_iter_next_line(place));
        pango_layout_iter_free(place);
    }

    void drawImage(cairo_t* cairo) {
        cairo_push_group(cairo);
        image_ == Image::text ? drawWord(cairo) : drawPicture(cairo);
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, kDensity / 100.0);
    }

    void drawWord(cairo_t* cairo) {
        PangoLayout* const word = pango_layout_new(context_);
        PangoFontDescription* const font = pango_font_description_from_string("Liberation Sans");
        pango_font_description_set_absolute_size(font, 72 * PANGO_SCALE);
        pango_layout_set_font_description(word, font);
        pango_font_description_free(font);
        pango_layout_set_text(word, "CONFIDENTIAL", -1);
        cairo_set_source_rgb(cairo, 0, 0, 1);
        cairo_move_to(cairo, 140, 600);
        cairo_rotate(cairo, -M_PI / 4);
        pango_cairo_show_layout(cairo, word);
        g_object_unref(word);
    }

    void drawPicture(cairo_t* cairo) {
        cairo_surface_t* const surface = cairo_image_surface_create_for_data(
            picture_.bits(), CAIRO_FORMAT_RGB24, picture_.width(), picture_.height(),
            static_cast<int>(picture_.bytesPerLine()));
        cairo_surface_set_mime_data(surface, CAIRO_MIME_TYPE_JPEG,
                                    reinterpret_cast<const unsigned char*>(jpeg_.constData()),
                                    static_cast<unsigned long>(jpeg_.size()), nullptr, nullptr);
        const QSizeF drawn = QSizeF(full_) * kScale / 100.0;
        cairo_translate(cairo, (kPageWidth - drawn.width()) / 2,
                        (kPageHeight - drawn.height()) / 2);
        cairo_scale(cairo, drawn.width() / picture_.width(), drawn.height() / picture_.height());
        cairo_set_source_surface(cairo, surface, 0, 0);
        cairo_paint(cairo);
        cairo_surface_destroy(surface);
    }

    Image image_;
    std::string names_;
    PangoContext* context_ = pango_font_map_create_context(pango_cairo_font_map_get_default());
    PangoLayout* layouts_[2] = {};
    QSize full_;
    QImage picture_, page_;
    QByteArray jpeg_, bytes_;
};

void Bare(benchmark::State& state, Image image) {
    BareWindow window(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), image);
    int step = 0;
    for (auto _ : state) window.show(Notes(step++));
}

void AtBothSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct({{10, 1000}, {388, 776}})->Unit(benchmark::kMillisecond)->MinTime(1);
    // Real time is what the user waits; the preview works on two threads.
    benchmark->MeasureProcessCPUTime()->UseRealTime();
}

BENCHMARK(Assemble)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Bare, Plain, Image::none)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Preview, Plain, Image::none)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Bare, Text, Image::text)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Preview, Text, Image::text)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Bare, Photograph, Image::photograph)->Apply(AtBothSizes);
BENCHMARK_CAPTURE(Preview, Photograph, Image::photograph)->Apply(AtBothSizes);

}  // namespace
