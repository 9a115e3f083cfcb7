#include "paper_output/stock/stock_summary.h"

#include <algorithm>

#include "controls/pictures.h"
#include "foundation/locale.h"
#include "settings/dictionary.h"
#include "settings/installable_options.h"
#include "settings/ppd_choices.h"
#include "shell/base/panel_interface.h"
#include "shell/base/texts.h"

namespace kalmo {
namespace {

// A color that only a stored ticket can name.
constexpr SInt32 kStockColorCustom = 10;

enum class Words { printer, stock, precutTab };

/// Where the words for a type come from, and whether the tabs of one bank are counted behind them.
struct TypeWordsRow {
    SInt32 type;
    Words words;
    bool isCounted;
};

constexpr TypeWordsRow kTypeWords[] = {
    {kStockTypePrecutTab, Words::precutTab, true}, {kStockTypeCustomTab, Words::stock, true},
    {kStockTypeCustom, Words::stock, false},       {kStockTypeTab, Words::printer, true},
    {kStockTypeHeavyTab, Words::printer, true},
};

TypeWordsRow WordsOf(SInt32 type) {
    const auto* row = std::ranges::find(kTypeWords, type, &TypeWordsRow::type);
    return row == std::end(kTypeWords) ? TypeWordsRow{type, Words::printer, false} : *row;
}

/// A length of tenths of a millimetre in the user's unit.
Owned<CFStringRef> LengthText(SInt32 tenths, bool metric) {
    return Owned<CFStringRef>::Adopt(metric ? CFLocaleCreateStringFromNumber(tenths / 10.0, 0, 1)
                                            : CFLocaleCreateStringFromNumber(tenths / 254.0, 0, 2));
}

Owned<CFStringRef> SizeText(CFBundleRef bundle, const Stock& stock) {
    auto text = CopyPrinterText(CFSTR("PageSize"), stock.size());
    if (!text || stock.width() == kUnset || stock.length() == kUnset) return text;
    const bool metric = CFLocaleUsesMetricSystem();
    const auto format = CopyText(
        bundle, metric ? CFSTR("StockCustomSizeMillimetres") : CFSTR("StockCustomSizeInches"));
    return Owned<CFStringRef>::Adopt(CFStringCreateWithFormat(
        kCFAllocatorDefault, format.get(), text.get(), LengthText(stock.width(), metric).get(),
        LengthText(stock.length(), metric).get()));
}

Owned<CFStringRef> UncountedTypeText(CFBundleRef bundle, const Stock& stock, Words words) {
    switch (words) {
        case Words::stock:
            return Owned<CFStringRef>::Retain(stock.customType());
        case Words::precutTab:
            return CopyText(bundle, CFSTR("StockTypePrecutTab"));
        case Words::printer:
            break;
    }
    return CopyPrinterText(CFSTR("MediaType"), stock.type());
}

/// Collects what is said, line by line.
class Lines final {
public:
    explicit Lines(CFBundleRef bundle) : bundle_(bundle) {}

    /// Nothing without a text; without a label the text alone.
    void add(CFStringRef labelKey, CFStringRef text) {
        if (CFStringGetLength(text) == 0) return;
        const auto shown = CopyShortened(text, kLongestStockText);
        if (!labelKey) return lines_.add(shown);
        const auto label = CopyText(bundle_, labelKey);
        const auto format = CopyText(bundle_, CFSTR("StockLine"));
        const auto line = Owned<CFStringRef>::Adopt(
            CFStringCreateWithFormat(kCFAllocatorDefault, format, label.get(), shown.get()));
        lines_.add(line);
    }
    [[nodiscard]] CFStringRef joined(CFStringRef separator) const {
        return lines_.joined(separator);
    }

private:
    CFBundleRef bundle_;
    TextParts lines_;
};

struct NameRow {
    SInt32 value;
    const char* name;
};

// Values of _MediaTypeMap, and the two tab types that only stored tickets name.
constexpr NameRow kPictureKinds[] = {
    {9, "Labels"},      {25, "Labels"},    {39, "Labels"},    {11, "Punched"},   {3, "Letterhead"},
    {14, "Letterhead"}, {24, "Tab"},       {33, "Tab"},       {4, "Tab"},        {6, "Tab"},
    {8, "Envelope"},    {12, "CardStock"}, {26, "CardStock"}, {43, "CardStock"}, {27, "CardStock"},
    {28, "CardStock"},  {35, "CardStock"}, {36, "CardStock"}, {46, "CardStock"}, {29, "Glossy"},
    {30, "Glossy"},     {44, "Glossy"},    {31, "Glossy"},    {32, "Glossy"},    {37, "Glossy"},
    {38, "Glossy"},     {47, "Glossy"},    {48, "Glossy"},    {49, "Glossy"},    {50, "Glossy"},
    {51, "Glossy"},
};

// Values of _MediaColorMap. A color that nobody has named is drawn white.
constexpr NameRow kPictureColors[] = {
    {kUnset, "White"}, {23, "White"}, {22, "White"}, {1, "White"},   {2, "Blue"},
    {4, "Green"},      {5, "Pink"},   {3, "Yellow"}, {9, "Red"},     {8, "Goldenrod"},
    {7, "Buff"},       {11, "Ivory"}, {12, "Gray"},  {13, "Orange"},
};

template <std::size_t count>
std::string NameOf(const NameRow (&rows)[count], SInt32 value, const char* missing) {
    const auto* row = std::ranges::find(rows, value, &NameRow::value);
    return row == std::end(rows) ? missing : row->name;
}

OSStatus DrawStockIcon(EventRef event, const Stock* stock) {
    const bool isDraw =
        GetEventClass(event) == kEventClassControl && GetEventKind(event) == kEventControlDraw;
    if (!isDraw || !stock) return eventNotHandledErr;
    const auto name = Owned<CFStringRef>::Adopt(CFStringCreateFromUTF8(StockPicture(*stock)));
    return DrawImage(event, name);
}

}  // namespace

Owned<CFStringRef> CopyInserterName(CFBundleRef bundle) {
    auto name = Owned<CFStringRef>::Adopt(
        CopyLocalizedStringForInstalledFeatureFromPlugin(kInserterFeature, bundle));
    return name ? name : CopyText(bundle, kInserterFeature);
}

Owned<CFStringRef> CopyPrinterText(CFStringRef keyword, SInt32 value) {
    const CFStringRef choice = PPDChoiceForTicketValue(keyword, value);
    return Owned<CFStringRef>::Adopt(PPDCopyChoiceText(PPDGetCurrent(), keyword, choice));
}

Owned<CFStringRef> CopyStockColorText(const Stock& stock) {
    if (stock.color() == kStockColorCustom) return Owned<CFStringRef>::Retain(stock.customColor());
    return CopyPrinterText(CFSTR("MediaColor"), stock.color());
}

Owned<CFStringRef> CopyStockTypeText(CFBundleRef bundle, const Stock& stock, MissingCount missing) {
    const TypeWordsRow row = WordsOf(stock.type());
    auto text = UncountedTypeText(bundle, stock, row.words);
    const SInt32 modulus = stock.modulus();
    const bool isShown =
        modulus > 0 || (missing == MissingCount::shown && row.words != Words::printer);
    if (!row.isCounted || !isShown || CFStringGetLength(text) == 0) return text;
    const auto number = CreateNumber(modulus);
    return Owned<CFStringRef>::Adopt(
        CFStringCreateWithFormat(kCFAllocatorDefault, CFSTR("%@ (%d)"), text.get(), number.get()));
}

CFStringRef GenerateStockSummary(CFBundleRef bundle, JobContext context, const Stock& stock,
                                 CFStringRef separator) {
    const bool isJob = context == JobContext::job;
    const bool isInserted = stock.source() == kStockSourceInserter;
    Lines lines(bundle);
    lines.add(CFSTR("StockName"), stock.customName());
    lines.add(nullptr, SizeText(bundle, stock));
    if (!isInserted)
        lines.add(isJob ? CFSTR("MediaColor") : CFSTR("StockColor"), CopyStockColorText(stock));
    lines.add(isJob ? CFSTR("MediaType") : CFSTR("StockType"),
              CopyStockTypeText(bundle, stock, MissingCount::leftOut));
    if (isInserted) lines.add(nullptr, CopyInserterName(bundle));
    return lines.joined(separator);
}

OSStatus ShowStockSummary(CFBundleRef bundle, ControlRef control, const Stock* stock,
                          JobContext context) {
    if (!bundle || !control) return paramErr;
    auto summary = Owned<CFStringRef>::Retain(CFSTR(""));
    if (stock)
        summary =
            Owned<CFStringRef>::Adopt(GenerateStockSummary(bundle, context, *stock, CFSTR("\n")));
    if (stock && CFStringGetLength(summary) == 0)
        summary = CopyText(
            bundle, context == JobContext::job ? CFSTR("PrinterDefault") : CFSTR("UseJobSetting"));
    SetControlTitleWithCFString(control, summary);
    return noErr;
}

std::string StockPicture(const Stock& stock) {
    if (stock.type() == kStockTypeTransparency) return "Paper_Transparency.gif";
    return "Paper_" + NameOf(kPictureKinds, stock.type(), "Plain") + "-" +
           NameOf(kPictureColors, stock.color(), "Other") + ".gif";
}

OSStatus StockIconEventHandler(EventHandlerCallRef, EventRef event, void* stock) {
    return WithoutExceptions(eventNotHandledErr, [&]() -> OSStatus {
        return DrawStockIcon(event, static_cast<const Stock*>(stock));
    });
}

}  // namespace kalmo
