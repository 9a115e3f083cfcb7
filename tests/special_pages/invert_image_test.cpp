// The helper for negative and mirrored print.
#include <gtest/gtest.h>

#include <QCheckBox>

#include "kalmo/pde.h"
#include "settings/ticket.h"
#include "settings/ticket_keys.h"
#include "special_pages/invert_image.h"
#include "toolbox/host.h"

namespace kalmo::test {
namespace {

struct InvertImage : testing::Test {
    InvertImage() { InvertImageInitialize(&context, &options); }
    ~InvertImage() override { PMTicketDispose(ticket); }

    OSStatus sync(Boolean direction) {
        return InvertImageSync(context, &options, direction, ticket);
    }
    std::pair<bool, bool> flags() const { return {options.NegativeImage, options.MirrorImage}; }

    PMTicketRef ticket = PMTicketCreate();
    InvertImageContext context;
    II_Options options;
};

TEST_F(InvertImage, WithoutBoxesTheFlagsPassThrough) {
    options.MirrorImage = true;
    EXPECT_EQ(sync(kSyncToTicket), noErr);
    options = {.NegativeImage = true};
    EXPECT_EQ(sync(kSyncToUI), noErr);
    EXPECT_EQ(flags(), std::pair(false, true));
    PMTicketReleaseItem(ticket, kInvertImageOptionsKey);
    EXPECT_EQ(sync(kSyncToUI), noErr) << "a missing dictionary is nothing wrong";
    EXPECT_EQ(flags(), std::pair(false, false));
}

TEST_F(InvertImage, AnyNumberButZeroIsTrue) {
    const auto dictionary =
        Owned<CFMutableDictionaryRef>::Adopt(CFDictionaryCreateMutable(kCFAllocatorDefault, 0));
    WriteTicketValue(dictionary, CFSTR("NegativeImage"), -2);
    CFDictionarySetValue(dictionary, CFSTR("MirrorImage"), CFSTR("1"));
    InvertImageSetOptionsFromTicket(dictionary, &options);
    EXPECT_EQ(flags(), std::pair(true, false));
}

TEST_F(InvertImage, BoxesOfItsOwnForceTheirFlags) {
    QWidget window;
    for (const SInt32 id : {910, 911, 912})
        SetControlID(ControlFromWidget(new QCheckBox(&window)), {'KPDE', id});
    ControlRef pane = nullptr;
    CreateUserPaneControl(WindowFromWidget(&window), {0, 0, 100, 100}, &pane);
    ASSERT_EQ(InvertImageOpen(&context, WindowFromWidget(&window), pane), noErr);
    sync(kSyncToTicket);
    EXPECT_EQ(flags(), std::pair(true, true));
    sync(kSyncToUI);
    EXPECT_EQ(GetControl32BitValue(context.mirror), 1);
    InvertImageTerminate(&context);
}

}  // namespace
}  // namespace kalmo::test
