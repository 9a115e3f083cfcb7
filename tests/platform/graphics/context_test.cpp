// What is drawn stands where and as it should, and failures are told.
#include <gtest/gtest.h>

#include <numbers>
#include <stdexcept>

#include "support/drawn_page.h"

namespace kalmo::test {
namespace {

constexpr CGRect kPage{{0, 0}, {200, 100}};
constexpr CGRect kLowerLeft{{10, 10}, {40, 20}};

TEST(Context, DrawsInPlaceAndTakesBackWhatWasSet) {
    const QImage page = DrawnPage(kPage, [](CGContextRef context) {
        CGContextSaveGState(context);
        CGContextSetRGBFillColor(context, 1, 0, 0, 1);
        CGContextClipToRect(context, CGRectMake(0, 0, 30, 100));
        CGContextFillRect(context, kLowerLeft);
        CGContextRestoreGState(context);
        CGContextRestoreGState(context);  // without a save
        CGContextSetRGBFillColor(context, 255, 255, 255, 1);
        CGContextFillRect(context, CGRectMake(100, 0, 100, 100));
        CGContextTranslateCTM(context, 150, 50);
        CGContextRotateCTM(context, std::numbers::pi / 2);
        CGContextScaleCTM(context, 2, 1);
        CGContextSetRGBFillColor(context, 0, 0, 1, 1);
        CGContextSetAlpha(context, 0.5);
        CGContextFillRect(context, CGRectMake(0, 0, 20, 10));  // x 140-150, y 50-90
        CGContextSetRGBStrokeColor(context, 0, 1, 0, 1);
        CGContextSetAlpha(context, 1);
        CGContextStrokeRectWithWidth(context, CGRectMake(-20, -30, 10, 10), 4);
    });
    EXPECT_EQ(page.pixelColor(20, 80), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(40, 80), QColor(Qt::white)) << "clipped";
    EXPECT_NEAR(page.pixelColor(145, 20).red(), 127, 2) << "half of blue over white";
    EXPECT_EQ(page.pixelColor(175, 90), QColor(Qt::green)) << "the stroke's lower edge";
    EXPECT_EQ(page.pixelColor(175, 80), QColor(Qt::white)) << "within the stroke";
}

TEST(Context, LayersThinAsOneAndUnfinishedOnesEndWithThePage) {
    for (const bool ended : {true, false}) {
        const QImage page = DrawnPage(CGRectMake(100, 50, 200, 100), [ended](CGContextRef context) {
            CGContextSetAlpha(context, 0.3);
            CGContextBeginTransparencyLayer(context, nullptr);
            CGContextSetRGBFillColor(context, 1, 0, 0, 1);
            CGContextFillRect(context, CGRectMake(100, 50, 60, 60));
            CGContextSaveGState(context);
            CGContextFillRect(context, CGRectMake(130, 50, 60, 60));
            if (ended) CGContextEndTransparencyLayer(context);
            if (ended) CGContextEndTransparencyLayer(context);
        });
        for (const int x : {10, 45, 80}) {
            EXPECT_NEAR(page.pixelColor(x, 90).green(), 178, 2) << x << ' ' << ended;
        }
        EXPECT_EQ(page.pixelColor(10, 30), QColor(Qt::white)) << "outside a box not at the origin";
    }
}

TEST(Context, EqualDrawingsGiveEqualBytes) {
    const auto draw = [](CGContextRef context) { CGContextFillRect(context, kLowerLeft); };
    const std::string first = DrawnPdf(kPage, draw);
    ASSERT_FALSE(first.empty());
    EXPECT_EQ(first.find("CreationDate"), std::string::npos);
    EXPECT_EQ(DrawnPdf(kPage, draw), first);
}

struct Disk {
    std::size_t room = 0;
    bool throws = false;
};

std::size_t WriteToDisk(void* info, const void*, std::size_t count) {
    auto& disk = *static_cast<Disk*>(info);
    if (count <= disk.room) return disk.room -= count, count;
    if (disk.throws) throw std::runtime_error("disk full");
    return 0;
}

TEST(Context, EveryRefusedWriteIsToldAndTheNextDocumentBeginsAnew) {
    Disk disk;
    const auto consumer =
        Owned<CGDataConsumerRef>::Adopt(CGDataConsumerCreate(&disk, {.putBytes = WriteToDisk}));
    const auto drawWith = [&](std::size_t room, bool throws) {
        disk = {room, throws};
        const auto context =
            Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, &kPage, nullptr));
        CGContextBeginPage(context, nullptr);
        CGContextFillRect(context, kLowerLeft);
        return CGPDFContextClose(context);
    };
    for (const std::size_t room : {0, 1, 100, 400, 700}) {
        EXPECT_EQ(drawWith(room, false), ioErr) << room;
        EXPECT_EQ(drawWith(room, true), ioErr) << room;
    }
    EXPECT_EQ(drawWith(100000, false), noErr);
}

TEST(Context, BrokenGeometryIsRefusedOrToldAtTheEnd) {
    for (const double side : {0.0, -1.0, std::nan(""), 1e9}) {
        EXPECT_EQ(DrawnPdf(CGRectMake(0, 0, side, 100), [](CGContextRef) {}), "") << side;
    }
    const QImage black = DrawnPage(kPage, [](CGContextRef context) {
        CGContextSetRGBFillColor(context, std::nan(""), -1, 0, 1);
        CGContextFillRect(context, kLowerLeft);
    });
    EXPECT_EQ(black.pixelColor(20, 80), QColor(Qt::black)) << "a colour that is no number";
    EXPECT_EQ(DrawnPdf(kPage, [](CGContextRef context) { CGContextScaleCTM(context, 0, 1); }), "");
}

TEST(PdfDocument, ReadsPagesAndRefusesTheRest) {
    const auto document = Reopened(DrawnPdf(kPage, [](CGContextRef) {}) + std::string(5000, '\0'));
    EXPECT_EQ(CGPDFDocumentGetNumberOfPages(document), 1u);
    EXPECT_EQ(CGPDFDocumentGetMediaBox(document, 1).size.width, 200);
    EXPECT_FALSE(CGPDFDocumentCreatePageImage(document, 2, 10, 10));
    EXPECT_FALSE(CGPDFDocumentCreatePageImage(document, 1, 0, 10));
    for (const char* const hostile : {"", "%PDF-1.7", "no document", "%PDF-1.4\nxref\n0 99999\n"}) {
        EXPECT_FALSE(Reopened(hostile)) << hostile;
    }
    const QImage copy = DrawnPage(kPage, [](CGContextRef context) {
        const auto inner = Reopened(
            DrawnPdf(kPage, [](CGContextRef small) { CGContextFillRect(small, kLowerLeft); }));
        CGContextDrawPDFDocument(context, CGRectMake(100, 0, 100, 50), inner, 1);
    });
    EXPECT_NEAR(InkOf(copy).origin.x, 105, 1);
    EXPECT_NEAR(InkOf(copy).origin.y, 5, 1);
}

}  // namespace
}  // namespace kalmo::test
