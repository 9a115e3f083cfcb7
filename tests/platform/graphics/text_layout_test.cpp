// Text: fonts by name, ink where it was measured, lines that break, glyphs.
#include <gtest/gtest.h>

#include "graphics/text_layout.h"
#include "support/drawn_page.h"
#include "support/values.h"

namespace kalmo::test {
namespace {

constexpr CGRect kPage{{0, 0}, {612, 792}};

std::string FaceFor(const char* name) {
    return TakeText(ATSFontCopyPostScriptName(ATSFontFindFromPostScriptName(String(name), 0)));
}

/// A layout of `text` in Liberation Sans, red.
Owned<ATSUTextLayout> LayoutOf(std::u16string_view text, int size, Boolean bold = false) {
    Owned<ATSUStyle> style;
    Owned<ATSUTextLayout> layout;
    ATSUCreateStyle(style.adopt());
    ATSUCreateTextLayout(layout.adopt());
    const ATSFontRef font = ATSFontFindFromPostScriptName(CFSTR("ArialMT"), 0);
    EXPECT_EQ(ATSUSetAttributes(style, {font, IntToFixed(size), bold, {1, 0, 0, 1}}), noErr);
    EXPECT_EQ(ATSUSetTextPointerLocation(layout, text.data(), static_cast<UInt32>(text.size())),
              noErr);
    EXPECT_EQ(ATSUSetRunStyle(layout, style), noErr);
    return layout;
}

std::vector<UInt32> BreaksOf(ATSUTextLayout layout, std::size_t length, int width) {
    std::vector<UInt32> breaks{0};
    while (breaks.back() < length) {
        UInt32 next = 0;
        EXPECT_EQ(ATSUBreakLine(layout, breaks.back(), IntToFixed(width), &next), noErr);
        if (next <= breaks.back()) return {};
        breaks.push_back(next);
    }
    return breaks;
}

TEST(Fonts, AreFoundByExactNameAndOtherwiseByWhatTheNameTells) {
    const std::pair<const char*, const char*> kRows[] = {
        {"LiberationSerif-Italic", "LiberationSerif-Italic"},
        {"ArialMT", "LiberationSans"},
        {"Arial-BoldItalicMT", "LiberationSans-BoldItalic"},
        {"TimesNewRomanPSMT", "LiberationSerif"},
        {"TimesNewRomanPS-BoldMT", "LiberationSerif-Bold"},
        {"CourierNewPS-ItalicMT", "LiberationMono-Italic"},
        {"", "(null)"},
    };
    for (const auto& [name, face] : kRows) EXPECT_EQ(FaceFor(name), face) << name;
    EXPECT_NE(FaceFor("NoSuchFont-\xE2\x82\xAC"), "(null)");
    const auto families = Owned<CFArrayRef>::Adopt(ATSFontCopyFamilies());
    const CFRange all{0, CFArrayGetCount(families)};
    EXPECT_TRUE(CFArrayContainsValue(families, all, CFSTR("Liberation Serif")));
    const auto faces = Owned<CFArrayRef>::Adopt(ATSFontCopyFacesOfFamily(CFSTR("Liberation Sans")));
    ASSERT_EQ(CFArrayGetCount(faces), 4);
    EXPECT_TRUE(CFEqual(CFArrayGetValueAtIndex(faces, 0), CFSTR("LiberationSans")));
    EXPECT_TRUE(CFEqual(CFArrayGetValueAtIndex(faces, 3), CFSTR("LiberationSans-BoldItalic")));
}

TEST(TextLayout, InkLiesWhereItWasMeasuredAtAnyAngle) {
    constexpr double kScale = 2;
    for (const std::u16string_view text :
         {u"CONFIDENTIAL", u"Ägypten, gray", u"\u0645\u0631\u062D\u0628\u0627 Ij",
          u"A long line: its last letters lie far from its first"}) {
        for (const int degrees : {0, 45, -60, 90, 200}) {
            SCOPED_TRACE(degrees);
            const auto layout = LayoutOf(text, text.size() > 20 ? 18 : 60);
            Rect ink;
            ATSUSetLineControls(layout, IntToFixed(degrees));
            ASSERT_EQ(ATSUMeasureTextImage(layout, 0, kATSUToTextEnd, &ink), noErr);
            const QImage page = DrawnPage(
                kPage,
                [&](CGContextRef context) {
                    ATSUSetLayoutControls(layout, {.context = context});
                    const double x = 306 - (ink.left + ink.right) / 2.0;
                    const double y = 396 + (ink.top + ink.bottom) / 2.0;
                    ATSUDrawText(layout, 0, kATSUToTextEnd, FloatToFixed(x), FloatToFixed(y));
                },
                kScale);
            const CGRect drawn = InkOf(page, kScale);
            EXPECT_NEAR(CGRectGetMidX(drawn), 306, 0.8);
            EXPECT_NEAR(CGRectGetMidY(drawn), 396, 0.8);
            EXPECT_NEAR(drawn.size.width, ink.right - ink.left, 2.1);
            EXPECT_NEAR(drawn.size.height, ink.bottom - ink.top, 2.1);
        }
    }
}

TEST(TextLayout, IsDrawnInItsColourThinnedByTheContext) {
    const QImage page = DrawnPage(kPage, [](CGContextRef context) {
        const auto layout = LayoutOf(u"\u2588\u2588", 72);
        ATSUSetLayoutControls(layout, {.context = context});
        CGContextSetAlpha(context, 0.25);
        ATSUDrawText(layout, 0, kATSUToTextEnd, IntToFixed(100), IntToFixed(400));
        // Joined letters overlap: one more tone than where they do not would show.
        ATSUSetTextPointerLocation(layout, u"\u0645\u0631\u062D\u0628\u0627", 5);
        ATSUDrawText(layout, 0, kATSUToTextEnd, IntToFixed(100), IntToFixed(200));
    });
    for (int x = 100; x < 300; ++x) {
        for (int y = 500; y < 650; ++y)
            ASSERT_GE(page.pixelColor(x, y).green(), 188) << x << ' ' << y;
    }
    EXPECT_NEAR(page.pixelColor(120, 372).green(), 191, 2);
    EXPECT_EQ(page.pixelColor(120, 372).red(), 255);
}

TEST(TextLayout, ALongTextBreaksAsItsPartsWould) {
    std::u16string text;
    for (int i = 0; i < 3000; ++i) text += u"Name" + std::u16string(i % 7, u'a') + u", ";
    const auto breaks = BreaksOf(LayoutOf(text, 12), text.size(), 550);
    ASSERT_GT(breaks.size(), 100u);
    for (std::size_t i = 0; i + 1 < breaks.size(); i += 9) {
        const auto rest = LayoutOf(std::u16string_view(text).substr(breaks[i], 400), 12);
        UInt32 next = 0;
        EXPECT_EQ(ATSUBreakLine(rest, 0, IntToFixed(550), &next), noErr);
        EXPECT_EQ(breaks[i] + next, std::min<std::size_t>(breaks[i + 1], text.size())) << i;
    }
}

TEST(TextLayout, TellsGlyphsInOrder) {
    const auto layout = LayoutOf(u"aba\U0001F600\tb", 12);
    const ATSLayoutRecord* glyphs = nullptr;
    CFIndex count = 0;
    ATSUDirectGetLayoutDataArrayPtrFromTextLayout(layout, 0, kATSUToTextEnd, &glyphs, &count);
    ASSERT_EQ(count, 6);
    EXPECT_EQ(glyphs[0].glyphID, glyphs[2].glyphID);
    EXPECT_NE(glyphs[0].glyphID, glyphs[1].glyphID);
    EXPECT_EQ(glyphs[5].glyphID, glyphs[1].glyphID);
    EXPECT_EQ(glyphs[5].originalOffset, 6u) << "behind a pair of units";
    EXPECT_GT(glyphs[1].realPos, glyphs[0].realPos);
}

TEST(TextLayout, HostileTextsAreHarmless) {
    for (const std::u16string_view text :
         {std::u16string_view(u""), std::u16string_view(u"   "),
          std::u16string_view(u"\0\n\r\t\x7f", 5), std::u16string_view(u"\xD800", 1)}) {
        const auto layout = LayoutOf(text, 12);
        Rect ink{1, 1, 1, 1};
        EXPECT_EQ(ATSUMeasureTextImage(layout, 0, kATSUToTextEnd, &ink), noErr);
        EXPECT_EQ(ink.right - ink.left > 0, text.size() == 1) << "only the replacement shows";
        EXPECT_FALSE(BreaksOf(layout, text.size(), 0).empty());
    }
}

}  // namespace
}  // namespace kalmo::test
