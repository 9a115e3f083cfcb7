// What is drawn stands where and as it should.
#include <gtest/gtest.h>

#include <numbers>

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

}  // namespace
}  // namespace kalmo::test
