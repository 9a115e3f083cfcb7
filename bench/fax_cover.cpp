// The preview of a fax cover sheet, from a keystroke in its notes to the repainted frame: through
// FaxCoverPreview, and the same work with cairo, pango and the PDF reader alone. Arguments: the
// number of recipients, and the preview's height in pixels.
#include <benchmark/benchmark.h>

#include <cstring>

#include "bare_page_window.h"
#include "fax/cover_preview.h"
#include "fax/fax_options.h"
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
class BareWindow final : public BarePageWindow {
public:
    BareWindow(int recipients, int height, Image image) : BarePageWindow(height), image_(image) {
        for (int i = 0; i < recipients; ++i) names_ += (i ? ", " : "") + Name(i);
        names_.resize(std::min<std::size_t>(names_.size(), 8192));  // more than fits the page
        for (PangoLayout* layout : {plain_, bold_}) {
            pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
            pango_layout_set_width(layout,
                                   static_cast<int>((kPageWidth - 2 * kMargin) * PANGO_SCALE));
        }
        if (image == Image::photograph) setPicture(Photograph());
    }
    ~BareWindow() override {
        for (PangoLayout* layout : {plain_, bold_}) g_object_unref(layout);
    }

    void show(const std::string& notes) {
        showPage([&](cairo_t* cairo) { drawCover(cairo, notes); });
    }

private:
    void drawCover(cairo_t* cairo, const std::string& notes) {
        cairo_set_source_rgb(cairo, 0, 0, 0);
        double top = kFirstLine;
        for (const auto& [label, text] :
             {std::pair<std::string, std::string>{"From:", "Ann Example\n"},
              {"To:", names_},
              {"Notes:", notes}}) {
            drawText(cairo, bold_, label, top);
            drawText(cairo, plain_, text, top);
            top += kGap;
        }
        if (image_ != Image::none) drawImage(cairo);
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
        image_ == Image::text ? drawWord(cairo) : drawPicture(cairo, kScale / 100.0);
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, kDensity / 100.0);
    }

    void drawWord(cairo_t* cairo) {
        PangoLayout* const word = makeLayout("Liberation Sans", 72);
        pango_layout_set_text(word, "CONFIDENTIAL", -1);
        cairo_set_source_rgb(cairo, 0, 0, 1);
        cairo_move_to(cairo, 140, 600);
        cairo_rotate(cairo, -M_PI / 4);
        pango_cairo_show_layout(cairo, word);
        g_object_unref(word);
    }

    Image image_;
    std::string names_;
    PangoLayout* plain_ = makeLayout("Sans", 12);
    PangoLayout* bold_ = makeLayout("Sans", 12, true);
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
