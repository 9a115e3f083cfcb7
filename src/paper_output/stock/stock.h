// One paper: size, colour, type, and what a production printer can tell papers apart by.
//
// Numbers that are not set are kUnset, texts that are not given are empty, never null. A size other
// than custom has no width and length; setting one of them makes the size custom.
#pragma once

#include "foundation/collections.h"
#include "settings/setting_map.h"

namespace kalmo {

inline constexpr SInt32 kUnset = kPrinterDefault;
inline constexpr SInt32 kStockSizeLetter = 1, kStockSizeCustom = 75;
inline constexpr SInt32 kStockColorWhite = 1, kStockColorClear = 6;
inline constexpr SInt32 kStockTypeStandard = 1, kStockTypeTransparency = 2, kStockTypeLabels = 9;
inline constexpr SInt32 kStockTypePrecutTab = 4, kStockTypeCustomTab = 6, kStockTypeCustom = 7,
                        kStockTypeTab = 24, kStockTypeHeavyTab = 33;
/// Paper from the post-print inserter.
inline constexpr SInt32 kStockSourceInserter = 10;

/// The values of size, color and type are those of _PageSizeMap, _MediaColorMap and _MediaTypeMap;
/// width and length are tenths of a millimetre.
class Stock {
public:
    Stock();
    /// From the ticket; a key that is missing or of the wrong kind leaves its field not set. May be
    /// null. Unlike the default constructor it starts without a colour.
    explicit Stock(CFDictionaryRef dictionary);
    Stock(const Stock& other) = default;
    /// Through the setters, color before type: a transparency always comes out clear.
    Stock& operator=(const Stock& other);
    virtual ~Stock() = default;

    [[nodiscard]] SInt32 size() const { return size_; }
    [[nodiscard]] SInt32 width() const { return width_; }
    [[nodiscard]] SInt32 length() const { return length_; }
    [[nodiscard]] SInt32 type() const { return type_; }
    [[nodiscard]] CFStringRef customType() const { return customType_; }
    [[nodiscard]] SInt32 color() const { return color_; }
    [[nodiscard]] CFStringRef customColor() const { return customColor_; }
    [[nodiscard]] SInt32 modulus() const { return modulus_; }
    [[nodiscard]] SInt32 punched() const { return punched_; }
    [[nodiscard]] SInt32 weight() const { return weight_; }
    [[nodiscard]] CFStringRef description() const { return description_; }
    [[nodiscard]] SInt32 sidesCoated() const { return sidesCoated_; }
    [[nodiscard]] SInt32 coatingType() const { return coatingType_; }
    [[nodiscard]] SInt32 finish() const { return finish_; }
    [[nodiscard]] SInt32 grain() const { return grain_; }
    [[nodiscard]] CFStringRef customName() const { return customName_; }
    [[nodiscard]] bool customNameOnly() const { return customNameOnly_; }
    [[nodiscard]] CFStringRef comment() const { return comment_; }
    [[nodiscard]] SInt32 source() const { return source_; }

    void setSize(SInt32 size);
    void setWidth(SInt32 width);
    void setLength(SInt32 length);
    void setType(SInt32 type);
    void setCustomType(CFStringRef text);
    void setColor(SInt32 color) { color_ = color; }
    void setCustomColor(CFStringRef text);
    void setModulus(SInt32 modulus) { modulus_ = modulus; }
    void setPunched(SInt32 punched) { punched_ = punched; }
    void setWeight(SInt32 weight) { weight_ = weight; }
    void setDescription(CFStringRef text);
    void setSidesCoated(SInt32 sides) { sidesCoated_ = sides; }
    void setCoatingType(SInt32 type) { coatingType_ = type; }
    void setFinish(SInt32 finish) { finish_ = finish; }
    void setGrain(SInt32 grain) { grain_ = grain; }
    void setCustomName(CFStringRef text);
    void setCustomNameOnly(UInt8 only) { customNameOnly_ = only != 0; }
    void setComment(CFStringRef text);
    void setSource(SInt32 source) { source_ = source; }

    /// The caller releases it; null when memory is short.
    [[nodiscard]] CFMutableDictionaryRef asTicket() const;
    /// Texts compare without case; a null text equals nothing.
    [[nodiscard]] bool operator==(const Stock& other) const;

private:
    struct TicketForm;
    SInt32 size_ = kUnset, width_ = kUnset, length_ = kUnset;
    SInt32 type_ = kUnset, color_ = kUnset, modulus_ = kUnset, punched_ = kUnset;
    SInt32 weight_ = kUnset, sidesCoated_ = kUnset, coatingType_ = 1, finish_ = kUnset;
    SInt32 grain_ = kUnset, source_ = kUnset;
    bool customNameOnly_ = false;
    Owned<CFStringRef> customType_, customColor_, description_, customName_, comment_;
};

/// Letter, white and standard for the job's own paper, else the job's setting. Coating type,
/// finish, grain, comment and source stay as they are.
void DefaultStock(Stock* stock, JobContext context);

}  // namespace kalmo
