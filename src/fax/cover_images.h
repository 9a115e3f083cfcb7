// The user's cover images and which of them is chosen. What is changed is saved at once, whatever
// becomes of the dialog.
#pragma once

#include "foundation/bundle.h"
#include "graphics/geometry.h"
#include "watermark/watermark_data.h"

namespace kalmo {

class CoverImages final {
public:
    /// As the store has them; none when it has no list, or is damaged. Nothing is chosen.
    explicit CoverImages(CFBundleRef bundle);

    [[nodiscard]] CFArrayRef names() const { return names_; }
    /// The chosen item of the menu: kNoCoverImageItem, and from 2 on the names.
    [[nodiscard]] SInt32 item() const;
    /// Lent; null for none.
    [[nodiscard]] CFStringRef chosenName() const { return chosen_; }

    void chooseNone() { chosen_ = {}; }
    void choose(CFIndex index);
    /// None when the list has no such name.
    void choose(CFStringRef name);

    // These hold up until the user is done. A store that cannot be written is told of, and nothing
    // has changed then.

    void makeNew(const CGSize& page);
    void edit(const CGSize& page);
    void remove();

private:
    [[nodiscard]] bool runEditor(const CGSize& page, CFArrayRef takenNames,
                                 _WatermarkData* record) const;
    void keep(const _WatermarkData& record, CFStringRef before);
    [[nodiscard]] bool mayDelete() const;
    [[nodiscard]] bool removeFromStore() const;

    CFBundleRef bundle_;  // lent
    Owned<CFMutableArrayRef> names_;
    Owned<CFStringRef> chosen_;  // of `names_`
};

}  // namespace kalmo
