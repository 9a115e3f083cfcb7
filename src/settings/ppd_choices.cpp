#include "settings/ppd_choices.h"

#include <iterator>

#include "settings/setting_map.h"

namespace kalmo {

// Tables that only MainKeywordMap uses.
namespace {

const PPDChoiceRow kJCLBannerChoices[] = {{CFSTR("True"), 1}, {CFSTR("False"), 0}, {}};

const PPDChoiceRow kKLMGraylineChoices[] = {
    {CFSTR("PrinterDefault"), 0},
    {CFSTR("Automatic"), 1},
    {CFSTR("PureBlack"), 2},
    {CFSTR("Composite"), 3},
    {},
};

const PPDChoiceRow kTrueGrayChoices[] = {{CFSTR("False"), 1}, {CFSTR("True"), 2}, {}};

const PPDChoiceRow kKLImageQualityChoices[] = {
    {CFSTR("Lighten5"), -5}, {CFSTR("Lighten4"), -4}, {CFSTR("Lighten3"), -3},
    {CFSTR("Lighten2"), -2}, {CFSTR("Lighten1"), -1}, {CFSTR("Normal"), 0},
    {CFSTR("Darken1"), 1},   {CFSTR("Darken2"), 2},   {CFSTR("Darken3"), 3},
    {CFSTR("Darken4"), 4},   {CFSTR("Darken5"), 5},   {},
};

const PPDChoiceRow kJCLPrintQualityChoices[] = {
    {CFSTR("TonerSaver"), 1},
    {CFSTR("Standard"), 2},
    {CFSTR("Enhanced"), 3},
    {CFSTR("HighSpeed"), 4},
    {CFSTR("HighQuality"), 5},
    {CFSTR("HighResolution"), 6},
    {},
};

const PPDChoiceRow kJCLRGBColorSpaceChoices[] = {
    {CFSTR("KalmoRGB"), 1}, {CFSTR("sRGB"), 2}, {CFSTR("AppleRGB"), 3}, {CFSTR("AdobeRGB"), 4}, {},
};

const PPDChoiceRow kJCLCMYKColorSpaceChoices[] = {
    {CFSTR("SNAP"), 1},       {CFSTR("SWOP"), 2},       {CFSTR("EuroScale"), 3},
    {CFSTR("Commercial"), 4}, {CFSTR("JapanColor"), 5}, {},
};

const PPDChoiceRow kJCLColorCorrectionChoices[] = {
    {CFSTR("Auto"), 1},
    {CFSTR("sRGB"), 2},
    {CFSTR("BlackWhite"), 3},
    {CFSTR("PressMatch"), 4},
    {CFSTR("None"), 5},
    {CFSTR("Standard"), 6},
    {},
};

const PPDChoiceRow kKLEconomodeChoices[] = {{CFSTR("None"), 2}, {CFSTR("Draft"), 1}, {}};

const PPDChoiceRow kKLOutputOptionChoices[] = {{CFSTR("True"), 1}, {CFSTR("False"), 0}, {}};

const PPDChoiceRow kResolutionChoices[] = {
    {CFSTR("200x100dpi"), 6},   {CFSTR("200x200dpi"), 5},
    {CFSTR("300x300dpi"), 1},   {CFSTR("600x600dpi"), 2},
    {CFSTR("1200x600dpi"), 3},  {CFSTR("1200x1200dpi"), 4},
    {CFSTR("1800x1800dpi"), 7}, {},
};

const PPDChoiceRow kKLColorModeChoices[] = {{CFSTR("Grayscale"), 1}, {CFSTR("Color"), 2}, {}};

const PPDChoiceRow kInputSlotChoices[] = {
    {CFSTR("Auto"), 0},  {CFSTR("Tray1"), 1},    {CFSTR("Tray2"), 2},
    {CFSTR("Tray3"), 3}, {CFSTR("Tray4"), 4},    {CFSTR("Tray5"), 5},
    {CFSTR("Tray6"), 6}, {CFSTR("Bypass"), 100}, {},
};

const PPDChoiceRow kKLFeedEdgeChoices[] = {{CFSTR("LongEdge"), 1}, {CFSTR("ShortEdge"), 2}, {}};

}  // namespace

const PPDChoiceRow _RequestOffsetMap[] = {{CFSTR("EndOfSet"), 1}, {CFSTR("None"), 0}, {}};

const PPDChoiceRow _MediaColorMap[] = {
    {CFSTR("PrinterDefaultColor"), 23},
    {CFSTR("Buff"), 7},
    {CFSTR("Blue"), 2},
    {CFSTR("Clear"), 6},
    {CFSTR("Gray"), 12},
    {CFSTR("Green"), 4},
    {CFSTR("Ivory"), 11},
    {CFSTR("Orange"), 13},
    {CFSTR("Other"), 14},
    {CFSTR("Pink"), 5},
    {CFSTR("Red"), 9},
    {CFSTR("White"), 1},
    {CFSTR("Yellow"), 3},
    {CFSTR("Goldenrod"), 8},
    {CFSTR("Unspecified"), 22},
    {CFSTR("Custom1"), 15},
    {CFSTR("Custom2"), 16},
    {CFSTR("Custom3"), 17},
    {CFSTR("Custom4"), 18},
    {CFSTR("Custom5"), 19},
    {CFSTR("Custom6"), 20},
    {CFSTR("Custom7"), 21},
    {},
};

const PPDChoiceRow _MediaTypeMap[] = {
    {CFSTR("SystemDefault"), 23},
    {CFSTR("Transparency"), 2},
    {CFSTR("Labels"), 9},
    {CFSTR("Punched"), 11},
    {CFSTR("Recycled"), 10},
    {CFSTR("PrePrinted"), 3},
    {CFSTR("Bond"), 13},
    {CFSTR("Letterhead"), 14},
    {CFSTR("TabStock"), 24},
    {CFSTR("Envelopes"), 8},
    {CFSTR("Other"), 22},
    {CFSTR("Custom1"), 15},
    {CFSTR("Custom2"), 16},
    {CFSTR("Custom3"), 17},
    {CFSTR("Custom4"), 18},
    {CFSTR("Custom5"), 19},
    {CFSTR("Custom6"), 20},
    {CFSTR("Custom7"), 21},
    {CFSTR("Standard"), 1},
    {CFSTR("CardStock"), 12},
    {CFSTR("Archive"), 45},
    {CFSTR("CardStock2"), 26},
    {CFSTR("CardStock"), 43},
    {CFSTR("CardStockF"), 43},
    {CFSTR("HeavyweightLabels"), 25},
    {CFSTR("ExtraHeavyweight"), 27},
    {CFSTR("ExtraHeavyweight2"), 28},
    {CFSTR("LightGlossy"), 29},
    {CFSTR("LightGlossy2"), 30},
    {CFSTR("LightGlossyF"), 44},
    {CFSTR("HeavyGlossy"), 31},
    {CFSTR("HeavyGlossy2"), 32},
    {CFSTR("HeavyTabStock"), 33},
    {CFSTR("Unspecified"), 34},
    {CFSTR("ExtraHeavyPlus"), 35},
    {CFSTR("ExtraHeavyPlus2"), 36},
    {CFSTR("ExtraHeavyGlossy"), 37},
    {CFSTR("ExtraHeavyGlossy2"), 38},
    {CFSTR("ExtraHeavyLabels"), 39},
    {CFSTR("Rough"), 40},
    {CFSTR("Standard2"), 41},
    {CFSTR("Light"), 42},
    {CFSTR("Postcard"), 46},
    {CFSTR("GlossCoating"), 47},
    {CFSTR("GlossCoatingReloaded"), 48},
    {CFSTR("HeavyWeightGlossCoating"), 49},
    {CFSTR("HeavyWeightGlossCoatingReloaded"), 51},
    {CFSTR("ExtraHeavyWeightGlossReloaded"), 50},
    {},
};

const PPDChoiceRow _PPDDuplexMap[] = {
    {CFSTR("None"), 1}, {CFSTR("DuplexNoTumble"), 2}, {CFSTR("DuplexTumble"), 3}, {}};

const PPDChoiceRow _PageSizeMap[] = {
    {CFSTR("Letter"), 1},
    {CFSTR("Legal"), 2},
    {CFSTR("Tabloid"), 3},
    {CFSTR("A4"), 4},
    {CFSTR("A3"), 5},
    {CFSTR("FanFoldGermanLegal"), 16},
    {CFSTR("8.5x13"), 12},
    {CFSTR("3x5"), 80},
    {CFSTR("Officio"), 78},
    {CFSTR("Statement"), 17},
    {CFSTR("A5"), 18},
    {CFSTR("A6"), 40},
    {CFSTR("Executive"), 21},
    {CFSTR("B5"), 6},
    {CFSTR("A4Cover"), 7},
    {CFSTR("A4Tab"), 203},
    {CFSTR("9x11"), 8},
    {CFSTR("9x11L"), 82},
    {CFSTR("B4"), 14},
    {CFSTR("5x7"), 41},
    {CFSTR("B6"), 42},
    {CFSTR("8x10"), 10},
    {CFSTR("GovernmentLetter"), 83},
    {CFSTR("4x6Pcard"), 43},
    {CFSTR("114x152Pcard"), 81},
    {CFSTR("EnvMonarch"), 44},
    {CFSTR("Env9"), 77},
    {CFSTR("Env10"), 45},
    {CFSTR("EnvDL"), 46},
    {CFSTR("EnvC5"), 20},
    {CFSTR("JISB5"), 55},
    {CFSTR("JISB4"), 56},
    {CFSTR("JISB6"), 57},
    {CFSTR("SpanishFolio"), 22},
    {CFSTR("EnvC4"), 58},
    {CFSTR("4x6"), 59},
    {CFSTR("100x148Postcard"), 60},
    {CFSTR("148x200Postcard"), 61},
    {CFSTR("TabloidExtra"), 11},
    {CFSTR("12x19"), 71},
    {CFSTR("13x19"), 66},
    {CFSTR("SRA3"), 15},
    {CFSTR("220x330"), 24},
    {CFSTR("815"), 23},
    {CFSTR("16K"), 29},
    {CFSTR("8K1"), 67},
    {CFSTR("16K1"), 68},
    {CFSTR("EnvB5"), 73},
    {CFSTR("Env6x9"), 25},
    {CFSTR("Env9x12"), 26},
    {CFSTR("EnvC6"), 74},
    {CFSTR("KL11x15"), 63},
    {CFSTR("EnvChou3"), 69},
    {CFSTR("5p5x7"), 76},
    {CFSTR("KL6x9"), 62},
    {CFSTR("3x5"), 80},
    {CFSTR("Custom"), 75},
    {},
};

const PPDChoiceRow _OutputBinMap[] = {
    {CFSTR("Auto"), 1},
    {CFSTR("Side"), 3},
    {CFSTR("Top"), 2},
    {CFSTR("TopTray"), 18},
    {CFSTR("Stacker"), 4},
    {CFSTR("TopTrayHCS"), 16},
    {CFSTR("StackerTrayHCS"), 17},
    {CFSTR("Upper"), 5},
    {CFSTR("Lower"), 6},
    {CFSTR("Booklet"), 7},
    {CFSTR("Middle"), 11},
    {CFSTR("Middle2"), 15},
    {CFSTR("PrinterDefault"), kPrinterDefault},
    {CFSTR("Center"), 5},
    {CFSTR("Bottom"), 5},
    {CFSTR("EnvFolder"), 13},
    {CFSTR("SBM"), 14},
    {CFSTR("CentreTray1"), 24},
    {CFSTR("CentreTray2"), 25},
    {CFSTR("RightTopTray"), 26},
    {CFSTR("RightMiddleTray"), 27},
    {CFSTR("Finisher"), 23},
    {},
};

const PPDChoiceRow _KLFoldMap[] = {
    {CFSTR("None"), 1},
    {CFSTR("C"), 19},
    {CFSTR("Z"), 20},
    {CFSTR("ZFoldHalfSheet"), 36},
    {CFSTR("BiFold"), 43},
    {CFSTR("BiFoldStaple"), 53},
    {},
};

const PPDChoiceRow _KLPunchMap[] = {
    {CFSTR("None"), 1},       {CFSTR("HolePunch"), 2},  {CFSTR("2HolePunch"), 3},
    {CFSTR("3HolePunch"), 4}, {CFSTR("4HolePunch"), 5}, {},
};

const PPDChoiceRow _KLStapleMap[] = {
    {CFSTR("None"), 1},
    {CFSTR("SinglePortrait"), 5},
    {CFSTR("DualLandscape"), 10},
    {CFSTR("MultipleStaples"), 54},
    {},
};

const PPDChoiceRow _SlipSheetMap[] = {
    {CFSTR("None"), 1}, {CFSTR("Blank"), 2}, {CFSTR("Printed"), 3}, {}};

// Two choices stand twice, and some values belong to several choices: the first row counts, both
// ways. One row more than the choices ends each map.
static_assert(std::size(_MediaTypeMap) == 48 + 1);
static_assert(std::size(_MediaColorMap) == 22 + 1);
static_assert(std::size(_PageSizeMap) == 57 + 1);

const MainKeywordRow MainKeywordMap[] = {
    {CFSTR("JCLBanner"), kJCLBannerChoices},
    {CFSTR("KLMGrayline"), kKLMGraylineChoices},
    {CFSTR("Jog"), _RequestOffsetMap},
    {CFSTR("JCLTrueGrayGraphics"), kTrueGrayChoices},
    {CFSTR("JCLTrueGrayImages"), kTrueGrayChoices},
    {CFSTR("KLImageQuality"), kKLImageQualityChoices},
    {CFSTR("MediaColor"), _MediaColorMap},
    {CFSTR("MediaType"), _MediaTypeMap},
    {CFSTR("KLSlipSheetType"), _MediaTypeMap},
    {CFSTR("Duplex"), _PPDDuplexMap},
    {CFSTR("JCLPrintQuality"), kJCLPrintQualityChoices},
    {CFSTR("JCLRGBColorSpace"), kJCLRGBColorSpaceChoices},
    {CFSTR("JCLCMYKColorSpace"), kJCLCMYKColorSpaceChoices},
    {CFSTR("JCLColorCorrection"), kJCLColorCorrectionChoices},
    {CFSTR("PageSize"), _PageSizeMap},
    {CFSTR("OutputBin"), _OutputBinMap},
    {CFSTR("KLFold"), _KLFoldMap},
    {CFSTR("KLPunch"), _KLPunchMap},
    {CFSTR("StapleLocation"), _KLStapleMap},
    {CFSTR("KLEconomode"), kKLEconomodeChoices},
    {CFSTR("KLOutputOption"), kKLOutputOptionChoices},
    {CFSTR("Resolution"), kResolutionChoices},
    {CFSTR("KLColorMode"), kKLColorModeChoices},
    {CFSTR("InputSlot"), kInputSlotChoices},
    {CFSTR("KLFrontCoverSheet"), kInputSlotChoices},
    {CFSTR("KLBackCoverSheet"), kInputSlotChoices},
    {CFSTR("KLSlipSheetSource"), kInputSlotChoices},
    {CFSTR("KLFeedEdge"), kKLFeedEdgeChoices},
    {CFSTR("KLSlipSheetPrint"), _SlipSheetMap},
    {},
};

namespace {

const PPDChoiceRow* ChoicesOf(CFStringRef keyword) {
    if (!keyword) return nullptr;
    const MainKeywordRow* row = MainKeywordMap;
    while (row->keyword && !CFEqual(row->keyword, keyword)) ++row;
    return row->choices;
}

}  // namespace

std::optional<SInt32> FindTicketValueForChoice(CFStringRef keyword, CFStringRef choice) {
    const PPDChoiceRow* row = choice ? ChoicesOf(keyword) : nullptr;
    if (!row) return std::nullopt;
    while (row->choice && !CFEqual(row->choice, choice)) ++row;
    return row->choice ? std::optional(row->value) : std::nullopt;
}

SInt32 PPDTicketValueForChoice(CFStringRef keyword, CFStringRef choice) {
    return FindTicketValueForChoice(keyword, choice).value_or(-1);
}

CFStringRef PPDChoiceForTicketValue(CFStringRef keyword, SInt32 value) {
    const PPDChoiceRow* row = ChoicesOf(keyword);
    while (row && row->choice && row->value != value) ++row;
    return row ? row->choice : nullptr;
}

}  // namespace kalmo
