// The ordered lists of inserts and of exceptions.
//
// A list owns its pages. What is added is cloned, so that the caller keeps its own; a page of a
// list is told from others by its identity. Who changes the start or the end of a page in a list
// takes its order away: from then on places are found by walking the list.
#pragma once

#include <memory>
#include <vector>

#include "foundation/collections.h"
#include "special_pages/page_sequence.h"

namespace kalmo {

class SpecialPageList {
public:
    virtual ~SpecialPageList();
    SpecialPageList& operator=(const SpecialPageList&) = delete;

    /// Lent; null outside the list.
    [[nodiscard]] virtual SpecialPage* pageAtIndex(CFIndex index) const;
    /// -1 when it is not in the list.
    [[nodiscard]] virtual CFIndex indexOfPage(const SpecialPage* page) const;
    /// Lent; null when it is not in the list.
    [[nodiscard]] const SpecialPage* pageWithSerial(SInt64 serial) const;
    /// Clones of the pages in the array (addresses of SpecialPage, no retain callbacks); pages of
    /// another kind than the list's are passed over. 0.
    virtual OSStatus add(CFArrayRef pages) = 0;
    /// The caller owns it.
    [[nodiscard]] virtual SpecialPageList* clone() const = 0;

    [[nodiscard]] CFIndex count() const { return static_cast<CFIndex>(pages_.size()); }
    /// Deletes the page; one that is not in the list stays.
    void remove(const SpecialPage* page);
    void clear();
    /// Deletes the page and adds the others in its stead; when that fails the page is back in its
    /// place. 0 and no change when it is not in the list.
    OSStatus update(const SpecialPage* old, CFArrayRef replacements);
    /// An array of dictionaries, null for an empty list. The caller releases it.
    [[nodiscard]] CFArrayRef asTicket() const;

protected:
    SpecialPageList() = default;
    SpecialPageList(const SpecialPageList&) = delete;

    void insertAt(std::size_t position, std::unique_ptr<SpecialPage> page);

    PageSequence pages_;
    /// Whether a place can be found by halving; each list says what that takes.
    bool isOrdered_ = true;
};

/// Ordered by start page, those of one page as they were added, until the user moves one.
class InsertList final : public SpecialPageList {
public:
    InsertList() = default;
    InsertList(const InsertList& other);

    [[nodiscard]] Insert* pageAtIndex(CFIndex index) const override;
    OSStatus add(CFArrayRef pages) override;
    [[nodiscard]] InsertList* clone() const override;

    /// One place forward or back, past a neighbour that does not stand before page 1.
    [[nodiscard]] bool canPromote(const Insert* insert) const;
    void promote(const Insert* insert);
    [[nodiscard]] bool canDemote(const Insert* insert) const;
    void demote(const Insert* insert);

private:
    void swapWithNext(CFIndex index);
    [[nodiscard]] bool isSorted() const;
    [[nodiscard]] std::size_t firstBehind(SInt32 page) const;
};

/// Sorted ranges without overlap: what is added takes its pages from those before. A range whose
/// end lies before its start takes none from others.
class ExceptionPageList final : public SpecialPageList {
public:
    ExceptionPageList() = default;
    ExceptionPageList(const ExceptionPageList& other);

    [[nodiscard]] ExceptionPage* pageAtIndex(CFIndex index) const override;
    OSStatus add(CFArrayRef pages) override;
    [[nodiscard]] ExceptionPageList* clone() const override;

private:
    [[nodiscard]] ExceptionPage& at(std::size_t index) const;
    [[nodiscard]] bool isSortedAndDisjoint() const;
    [[nodiscard]] std::size_t endOfCovered(const ExceptionPage& added, std::size_t first) const;
    void cutOut(std::size_t index, const ExceptionPage& added);
    [[nodiscard]] std::size_t makeRoom(const ExceptionPage& added);
    void place(std::unique_ptr<ExceptionPage> added);
};

/// For add and update, from records on the caller's stack.
[[nodiscard]] Owned<CFMutableArrayRef> ArrayOfPages(const std::vector<const SpecialPage*>& pages);

}  // namespace kalmo
