// The helper for negative and mirrored print.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>

#include "kalmo/pde.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "special_pages/invert_image.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

class InvertImage : public testing::Test {
protected:
    InvertImage() { InvertImageInitialize(&context_, &options_); }
    ~InvertImage() override { PMTicketDispose(ticket_); }

    std::pair<bool, bool> flags() const { return {options_.NegativeImage, options_.MirrorImage}; }
    std::pair<CFIndex, CFIndex> written() const {
        CFDictionaryRef dictionary = nullptr;
        CFIndex negative = -1, mirror = -1;
        PMTicketGetCFDictionary(ticket_, kInvertImageOptionsKey, &dictionary);
        GetCFIndexFromCFDictionary(dictionary, CFSTR("NegativeImage"), &negative);
        GetCFIndexFromCFDictionary(dictionary, CFSTR("MirrorImage"), &mirror);
        return {negative, mirror};
    }

    PMTicketRef ticket_ = PMTicketCreate();
    InvertImageContext context_;
    II_Options options_;
};

TEST_F(InvertImage, WithoutBoxesTheFlagsPassThrough) {
    options_.MirrorImage = true;
    EXPECT_EQ(InvertImageSync(context_, &options_, kSyncToTicket, ticket_), noErr);
    EXPECT_EQ(written(), std::pair(CFIndex{0}, CFIndex{1}));
    EXPECT_TRUE(CFEqual(PMTicketGetItemCreator(ticket_, kInvertImageOptionsKey), CFSTR("K")));

    options_ = {.NegativeImage = true};
    EXPECT_EQ(InvertImageSync(context_, &options_, kSyncToUI, ticket_), noErr);
    EXPECT_EQ(flags(), std::pair(false, true));
    PMTicketReleaseItem(ticket_, kInvertImageOptionsKey);
    EXPECT_EQ(InvertImageSync(context_, &options_, kSyncToUI, ticket_), noErr);
    EXPECT_EQ(flags(), std::pair(false, false));
    EXPECT_TRUE(options_.valid);
}

TEST_F(InvertImage, AnyNumberButZeroIsTrue) {
    const auto dictionary =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    const double half = 0.5;
    const auto number =
        Owned<CFNumberRef>::Adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberFloat64Type, &half));
    CFDictionarySetValue(dictionary, CFSTR("NegativeImage"), number);
    CFDictionarySetValue(dictionary, CFSTR("MirrorImage"), CFSTR("1"));
    InvertImageSetOptionsFromTicket(dictionary, &options_);
    EXPECT_EQ(flags(), std::pair(true, false));
}

TEST_F(InvertImage, BoxesOfItsOwnForceTheirFlags) {
    QWidget window;
    auto* group = new QGroupBox(&window);
    auto* negative = new QCheckBox(group);
    auto* mirror = new QCheckBox(group);
    for (const auto& [widget, id] :
         {std::pair<QWidget*, SInt32>{group, 910}, {negative, 911}, {mirror, 912}})
        SetControlID(ControlFromWidget(widget), {'KPDE', id});
    ControlRef pane = nullptr;
    CreateUserPaneControl(WindowFromWidget(&window), {0, 0, 100, 100}, &pane);
    ASSERT_EQ(InvertImageOpen(&context_, WindowFromWidget(&window), pane), noErr);
    EXPECT_TRUE(WidgetFromControl(pane)->isAncestorOf(negative));

    ASSERT_FALSE(negative->isChecked());
    InvertImageSync(context_, &options_, kSyncToTicket, ticket_);
    EXPECT_EQ(written(), std::pair(CFIndex{1}, CFIndex{1}));
    InvertImageSync(context_, &options_, kSyncToUI, ticket_);
    EXPECT_TRUE(negative->isChecked() && mirror->isChecked());

    InvertImageTerminate(&context_);
    EXPECT_TRUE(window.findChildren<QCheckBox*>().isEmpty());
    InvertImageTerminate(&context_);
}

}  // namespace
}  // namespace kalmo::test
