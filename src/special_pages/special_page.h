// Pages of a job that differ from the others: covers, inserts, exceptions.
#pragma once

#include <memory>

#include "paper_output/stock/stock.h"
#include "special_pages/image_shift.h"

namespace kalmo {

/// Tells the list that holds a page that the page's place may be another now. A copy of a page
/// stands in no list.
class PlaceMark final {
public:
    PlaceMark() = default;
    PlaceMark(const PlaceMark&) {}
    PlaceMark& operator=(const PlaceMark&) {
        moved();
        return *this;
    }
    ~PlaceMark() = default;

    /// `isOrdered` lives as long as the page.
    void watch(bool* isOrdered) { isOrdered_ = isOrdered; }
    void moved() {
        if (isOrdered_) *isOrdered_ = false;
    }

private:
    bool* isOrdered_ = nullptr;
};

/// A page with a paper of its own. Ticket form: "StartPage" and "Stock".
class SpecialPage {
public:
    SpecialPage() = default;
    SpecialPage(const SpecialPage&) = default;
    explicit SpecialPage(CFDictionaryRef dictionary);
    SpecialPage& operator=(const SpecialPage&) = default;
    virtual ~SpecialPage() = default;

    /// The caller releases it.
    [[nodiscard]] virtual CFMutableDictionaryRef asTicket() const;
    /// The caller owns it.
    [[nodiscard]] virtual SpecialPage* clone() const = 0;

    [[nodiscard]] SInt32 startPage() const { return startPage_; }
    void setStartPage(SInt32 page) {
        startPage_ = page;
        mark_.moved();
    }
    [[nodiscard]] Stock& stock() { return stock_; }
    [[nodiscard]] const Stock& stock() const { return stock_; }
    /// A number that no other page has or had, copies included: an address may be another page's
    /// later.
    [[nodiscard]] SInt64 serial() const { return serial_.number; }

protected:
    PlaceMark mark_;

private:
    friend class SpecialPageList;

    struct Serial {
        Serial();
        Serial(const Serial&) : Serial() {}
        Serial& operator=(const Serial&) { return *this; }
        SInt64 number;
    };

    SInt32 startPage_ = 0;
    Stock stock_;
    Serial serial_;
};

/// A front or back cover; it stands before or after all pages, so its start page stays 0.
class Cover final : public SpecialPage {
public:
    Cover() = default;
    explicit Cover(CFDictionaryRef dictionary);

    [[nodiscard]] CFMutableDictionaryRef asTicket() const override;
    [[nodiscard]] Cover* clone() const override;
    [[nodiscard]] SInt32 sidesImaged() const { return sidesImaged_; }
    void setSidesImaged(SInt32 sides) { sidesImaged_ = sides; }
    /// The start page takes no part.
    [[nodiscard]] bool operator==(const Cover& other) const;

private:
    SInt32 sidesImaged_ = 1;
};

/// Sheets behind the page that it starts at; 0: before page 1.
class Insert final : public SpecialPage {
public:
    Insert() = default;
    explicit Insert(CFDictionaryRef dictionary);

    [[nodiscard]] CFMutableDictionaryRef asTicket() const override;
    [[nodiscard]] Insert* clone() const override;
    [[nodiscard]] SInt32 quantity() const { return quantity_; }
    void setQuantity(SInt32 quantity) { quantity_ = quantity; }

private:
    SInt32 quantity_ = 1;
};

/// A range of pages, both ends included, printed in a way of its own.
class ExceptionPage final : public SpecialPage {
public:
    ExceptionPage();
    /// A halftone screen is not read back (kept as it is: only its maker knows it), so a page that
    /// comes from a ticket has none.
    explicit ExceptionPage(CFDictionaryRef dictionary);

    [[nodiscard]] CFMutableDictionaryRef asTicket() const override;
    [[nodiscard]] ExceptionPage* clone() const override;
    [[nodiscard]] SInt32 endPage() const { return endPage_; }
    void setEndPage(SInt32 page) {
        endPage_ = page;
        mark_.moved();
    }
    /// A value of PlexMap, or kUnset.
    [[nodiscard]] SInt32 plex() const { return plex_; }
    void setPlex(SInt32 plex) { plex_ = plex; }
    [[nodiscard]] _IS_Options& imageShift() { return imageShift_; }
    [[nodiscard]] const _IS_Options& imageShift() const { return imageShift_; }
    /// As its maker gave it; nobody sets it later (kept as it is). Or kUnset.
    [[nodiscard]] SInt32 halftoneScreen() const { return halftoneScreen_; }
    /// -5 to 5, or kUnset.
    [[nodiscard]] SInt32 lightenDarken() const { return lightenDarken_; }
    void setLightenDarken(SInt32 value) { lightenDarken_ = value; }

private:
    SInt32 endPage_ = 0, plex_ = kUnset;
    _IS_Options imageShift_;
    SInt32 halftoneScreen_ = kUnset, lightenDarken_ = kUnset;
};

}  // namespace kalmo
