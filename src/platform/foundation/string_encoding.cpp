// Text in other encodings, through ICU's converters.
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <cstring>
#include <memory>
#include <optional>

#include "foundation/string_private.h"

namespace {

struct EncodingRow {
    CFStringEncoding encoding;
    const char* converter;
};
constexpr EncodingRow kEncodings[] = {
    {kCFStringEncodingMacRoman, "macintosh"},   {kCFStringEncodingISOLatin1, "ISO-8859-1"},
    {kCFStringEncodingISOLatin2, "ISO-8859-2"}, {kCFStringEncodingISOLatin5, "ISO-8859-9"},
    {kCFStringEncodingASCII, "US-ASCII"},       {kCFStringEncodingShiftJIS, "Shift_JIS"},
    {kCFStringEncodingUTF8, "UTF-8"},
};

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterHolder = std::unique_ptr<UConverter, ConverterCloser>;

/// A converter that stops at what it cannot convert; null for an unknown encoding.
ConverterHolder OpenStrict(CFStringEncoding encoding) {
    for (const EncodingRow& row : kEncodings) {
        if (row.encoding != encoding) continue;
        UErrorCode status = U_ZERO_ERROR;
        ConverterHolder converter(ucnv_open(row.converter, &status));
        if (U_FAILURE(status)) return nullptr;
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                            &status);
        ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                              &status);
        return converter;
    }
    return nullptr;
}

std::optional<std::string> Encoded(const std::u16string& text, CFStringEncoding encoding) {
    const ConverterHolder converter = OpenStrict(encoding);
    if (!converter) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(UCNV_GET_MAX_BYTES_FOR_STRING(
                          static_cast<int32_t>(text.size()), ucnv_getMaxCharSize(converter.get()))),
                      '\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        ucnv_fromUChars(converter.get(), bytes.data(), static_cast<int32_t>(bytes.size()),
                        text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

}  // namespace

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean hasByteOrderMark) {
    if (!bytes || count < 0 || count > INT32_MAX / 2) return nullptr;
    const ConverterHolder converter = OpenStrict(encoding);
    if (!converter) return nullptr;
    std::u16string text(static_cast<std::size_t>(count) * 2 + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        ucnv_toUChars(converter.get(), text.data(), static_cast<int32_t>(text.size()),
                      reinterpret_cast<const char*>(bytes), static_cast<int32_t>(count), &status);
    if (U_FAILURE(status)) return nullptr;
    text.resize(static_cast<std::size_t>(length));
    if (hasByteOrderMark && text.starts_with(u'\uFEFF')) text.erase(0, 1);
    return kalmo::foundation::MakeString(std::move(text));
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                      CFStringEncoding encoding) {
    if (!text) return nullptr;
    return CFStringCreateWithBytes(allocator, reinterpret_cast<const UInt8*>(text),
                                   static_cast<CFIndex>(std::strlen(text)), encoding, false);
}

Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size,
                           CFStringEncoding encoding) {
    if (!buffer || size < 1) return false;
    buffer[0] = '\0';
    if (!string) return false;
    const auto bytes = Encoded(string->text, encoding);
    if (!bytes || static_cast<CFIndex>(bytes->size()) >= size) return false;
    std::memcpy(buffer, bytes->c_str(), bytes->size() + 1);
    return true;
}
