// Pages of a job that differ from the others: covers so far.
#pragma once

#include <memory>

#include "paper_output/stock/stock.h"

namespace kalmo {

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
    void setStartPage(SInt32 page) { startPage_ = page; }
    [[nodiscard]] Stock& stock() { return stock_; }
    [[nodiscard]] const Stock& stock() const { return stock_; }

private:
    SInt32 startPage_ = 0;
    Stock stock_;
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

}  // namespace kalmo
