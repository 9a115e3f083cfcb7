// The preview of a watermark, from a change to its repainted frame: through WatermarkPreview, and
// the same work with cairo, pango and the PDF reader alone. Argument: the preview's height in
// pixels.
#include <benchmark/benchmark.h>
#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <cstring>
#include <memory>
#include <random>
#include <stdexcept>

#include "foundation/bundle.h"
#include "toolbox/host.h"
#include "toolbox/windows.h"
#include "watermark/watermark_preview.h"

namespace {

constexpr QSizeF kPage(612, 792);

const QTemporaryDir& Folder() {
    static const QTemporaryDir folder;
    return folder;
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

/// Twelve megapixels of shapes and grain, as a camera writes them.
const QString& Photograph() {
    static const QString path = [] {
        QImage image(4000, 3000, QImage::Format_RGB32);
        std::minstd_rand random(1);
        for (int y = 0; y < image.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const int grain = static_cast<int>(random() % 24);
                row[x] = qRgb(x / 20 + grain, y / 16 + grain, (x ^ y) / 32 + grain);
            }
        }
        const QString file = Folder().filePath("photograph.jpg");
        image.save(file, "jpeg", 92);
        return file;
    }();
    return path;
}

/// What both ways draw: a text that turns, or the photograph at a size that changes.
struct Change {
    int step = 0;
    int leastScale = 13;  // the whole photograph lies on the page

    void next() { step = (step + 1) % 4; }
    [[nodiscard]] int angle() const { return 40 + step; }
    [[nodiscard]] int scale() const { return leastScale + step; }
};

constexpr char kInterface[] =
    "<ui version='4.0'><class>Panel</class><widget class='QWidget' name='Panel'>"
    "<widget class='QWidget' name='Window'><widget class='PictureControl' name='picture'>"
    "<property name='controlSignature' stdset='0'><string>KPDE</string></property>"
    "<property name='controlID' stdset='0'><number>1</number></property>"
    "</widget></widget></widget></ui>";

/// A window with one picture control, all of it a preview.
class PreviewWindow {
public:
    explicit PreviewWindow(int height) {
        const QString contents = Folder().filePath("Bench.plugin/Contents");
        QDir().mkpath(contents + "/Resources");
        Write(contents + "/Info.plist",
              "<plist version='1.0'><dict><key>CFBundleIdentifier</key><string>bench</string>"
              "</dict></plist>");
        Write(contents + "/Resources/Panel.ui", kInterface);
        const auto path = Owned<CFStringRef>::Adopt(
            CFStringCreateFromUTF8(Folder().filePath("Bench.plugin").toStdString()));
        const auto url = Owned<CFURLRef>::Adopt(CFURLCreateWithFileSystemPath(nullptr, path, true));
        bundle_ = Owned<CFBundleRef>::Adopt(CFBundleCreate(nullptr, url));
        ControlRef control = nullptr;
        if (CreateNibReferenceWithCFBundle(bundle_, CFSTR("Panel"), &nib_) != noErr ||
            CreateWindowFromNib(nib_, CFSTR("Window"), &window_) != noErr ||
            GetControlByID(window_, {'KPDE', 1}, &control) != noErr)
            throw std::runtime_error("the window cannot be made");
        const EventTypeSpec draw = {kEventClassControl, kEventControlDraw};
        InstallControlEventHandler(control, &PreviewWindow::draw, 1, &draw, this, nullptr);
        preview_.setControl(control);
        QWidget* const window = WidgetFromWindow(window_);
        window->resize(height * 612 / 792, height);
        WidgetFromControl(control)->setGeometry(window->rect());
        window->show();
        QCoreApplication::processEvents();
    }
    ~PreviewWindow() {
        DisposeWindow(window_);
        DisposeNibReference(nib_);
    }
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    /// Returns when the drawing of the change is on the screen.
    void show(const kalmo::_WatermarkData& record) {
        isDrawn_ = isShown_ = false;
        preview_.show(record, kalmo::kDefaultWatermarkPage);
        while (!isShown_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    static OSStatus draw(EventHandlerCallRef, EventRef event, void* self) {
        auto& window = *static_cast<PreviewWindow*>(self);
        window.isShown_ = window.isDrawn_;
        return window.preview_.draw(event);
    }

    Owned<CFBundleRef> bundle_;
    IBNibRef nib_ = nullptr;
    WindowRef window_ = nullptr;
    bool isDrawn_ = false, isShown_ = false;
    kalmo::WatermarkPreview preview_{[this](const kalmo::_WatermarkData&, OSStatus status) {
        if (status != noErr) throw std::runtime_error("the watermark cannot be drawn");
        isDrawn_ = true;
    }};
};

void Preview(benchmark::State& state, const char* text, int leastScale) {
    PreviewWindow window(static_cast<int>(state.range(0)));
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
        window.show(*record);
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
