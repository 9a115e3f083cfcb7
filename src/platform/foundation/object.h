// Counted values: retain, release, equality and the one holder, Owned.
#pragma once

#include <cstddef>
#include <utility>

#include "kalmo/types.h"

#pragma GCC visibility push(default)

/// Counts up and returns the same value; null stays null. Print sessions and printers count too.
CFTypeRef CFRetain(CFTypeRef value);
/// Counts down and frees the value at zero; null is ignored.
void CFRelease(CFTypeRef value);
[[nodiscard]] CFIndex CFGetRetainCount(CFTypeRef value);
[[nodiscard]] CFTypeID CFGetTypeID(CFTypeRef value);
/// Deep equality. Numbers compare by value; a boolean never equals a number. Null equals only null.
[[nodiscard]] Boolean CFEqual(CFTypeRef left, CFTypeRef right);
/// Equal values have equal hashes.
[[nodiscard]] std::size_t CFHash(CFTypeRef value);
/// One line for developers: what the value is and holds. The caller releases it.
[[nodiscard]] CFStringRef CFCopyDescription(CFTypeRef value);

/// How many counted values are alive, constants left out. Equal before and after a dialog's life.
[[nodiscard]] std::size_t CFLiveValueCount();

#pragma GCC visibility pop

inline constexpr CFAllocatorRef kCFAllocatorDefault = nullptr;

/// The one holder that counts: Adopt takes over what Create or Copy returned, Retain keeps what a
/// Get lent. Converts to the borrowed reference wherever one is asked for.
template <typename Ref>
class Owned final {
public:
    Owned() = default;
    [[nodiscard]] static Owned Adopt(Ref created) { return Owned(created); }
    [[nodiscard]] static Owned Retain(Ref lent) {
        if (lent) CFRetain(lent);
        return Owned(lent);
    }
    Owned(const Owned& other) : ref_(other.ref_) {
        if (ref_) CFRetain(ref_);
    }
    Owned(Owned&& other) noexcept : ref_(std::exchange(other.ref_, nullptr)) {}
    /// A holder of a mutable value becomes one of the same value seen as immutable.
    template <typename Other>
    Owned(Owned<Other>&& other) noexcept : ref_(other.detach()) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(ref_, other.ref_);
        return *this;
    }
    ~Owned() {
        if (ref_) CFRelease(ref_);
    }

    [[nodiscard]] Ref get() const { return ref_; }
    operator Ref() const { return ref_; }
    /// Hands the reference to the caller, who releases it.
    [[nodiscard]] Ref detach() { return std::exchange(ref_, nullptr); }
    /// For functions that give a created reference through an out argument.
    [[nodiscard]] Ref* adopt() {
        *this = Owned();
        return &ref_;
    }

private:
    explicit Owned(Ref ref) : ref_(ref) {}
    Ref ref_ = nullptr;
};
