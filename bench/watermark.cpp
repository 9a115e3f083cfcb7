// The preview of a watermark, from a change to its repainted frame: through WatermarkPreview, and
// the same work with cairo, pango and the PDF reader alone. Argument: the preview's height in
// pixels.
#include <benchmark/benchmark.h>

#include <cstring>

#include "bare_page_window.h"
#include "watermark/watermark_preview.h"

namespace {

using namespace kalmo::bench;

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
class BareWindow final : public BarePageWindow {
public:
    using BarePageWindow::BarePageWindow;
    ~BareWindow() override { g_object_unref(layout_); }

    void show(const Change& change, const char* text) {
        showPage([&](cairo_t* cairo) {
            text ? drawText(cairo, change.angle(), text)
                 : drawPicture(cairo, change.scale() / 100.0);
        });
    }

private:
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
        cairo_translate(cairo, (kPageWidth - left - right) / 2, (kPageHeight - top - bottom) / 2);
        cairo_rotate(cairo, -angle * M_PI / 180);
        cairo_move_to(cairo, 0, 0);
        pango_cairo_show_layout_line(cairo, line);
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, 0.25);
    }

    PangoLayout* layout_ = makeLayout("Liberation Sans", 72);
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
