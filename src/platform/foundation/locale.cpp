// Numbers and measures in the user's locale, through ICU.
#include "foundation/locale.h"

#include <unicode/ulocdata.h>
#include <unicode/unum.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

#include "foundation/string_private.h"

namespace {

/// The locale that the C library would use for a category such as "LC_NUMERIC", without its
/// encoding; "C" reads as English.
std::string LocaleOf(const char* category) {
    for (const char* name : {"LC_ALL", category, "LANG"}) {
        const char* const value = std::getenv(name);
        if (!value || !*value) continue;
        const std::string locale =
            std::string(value).substr(0, std::string(value).find_first_of(".@"));
        return locale == "C" || locale == "POSIX" ? "en_US_POSIX" : locale;
    }
    return "en_US_POSIX";
}

struct FormatCloser {
    void operator()(UNumberFormat* format) const { unum_close(format); }
};
using FormatHolder = std::unique_ptr<UNumberFormat, FormatCloser>;

FormatHolder OpenDecimalFormat() {
    UErrorCode status = U_ZERO_ERROR;
    FormatHolder format(
        unum_open(UNUM_DECIMAL, nullptr, 0, LocaleOf("LC_NUMERIC").c_str(), nullptr, &status));
    if (U_FAILURE(status)) return nullptr;
    unum_setAttribute(format.get(), UNUM_GROUPING_USED, false);
    return format;
}

}  // namespace

CFStringRef CFLocaleCopyDecimalSeparator() {
    const FormatHolder format = OpenDecimalFormat();
    char16_t separator[8] = u".";
    UErrorCode status = U_ZERO_ERROR;
    if (format) {
        unum_getSymbol(format.get(), UNUM_DECIMAL_SEPARATOR_SYMBOL, separator, 8, &status);
    }
    return kalmo::foundation::MakeString(separator);
}

CFStringRef CFLocaleCreateStringFromNumber(double value, int minimumFractionDigits,
                                           int maximumFractionDigits) {
    const FormatHolder format = OpenDecimalFormat();
    if (!format) return CFStringCreateFromUTF8(std::to_string(value));
    unum_setAttribute(format.get(), UNUM_MIN_FRACTION_DIGITS, minimumFractionDigits);
    unum_setAttribute(format.get(), UNUM_MAX_FRACTION_DIGITS, maximumFractionDigits);
    char16_t text[512];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = unum_formatDouble(format.get(), value, text, 512, nullptr, &status);
    if (U_FAILURE(status) || length > 512) return CFStringCreateFromUTF8(std::to_string(value));
    return kalmo::foundation::MakeString({text, static_cast<std::size_t>(length)});
}

std::optional<double> CFLocaleNumberFromString(CFStringRef text) {
    const FormatHolder format = OpenDecimalFormat();
    if (!format || !text || text->text.empty()) return std::nullopt;
    int32_t end = 0;
    UErrorCode status = U_ZERO_ERROR;
    const double value = unum_parseDouble(format.get(), text->text.data(),
                                          static_cast<int32_t>(text->text.size()), &end, &status);
    // ICU also reads "NaN", an infinity sign and what overflows to infinity.
    const bool isWhole = static_cast<std::size_t>(end) == text->text.size();
    if (U_FAILURE(status) || !isWhole || !std::isfinite(value)) return std::nullopt;
    return value;
}

bool CFLocaleUsesMetricSystem() {
    UErrorCode status = U_ZERO_ERROR;
    // The British system is metric where paper is concerned.
    return ulocdata_getMeasurementSystem(LocaleOf("LC_MEASUREMENT").c_str(), &status) != UMS_US;
}
