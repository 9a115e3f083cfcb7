#include "shell/base/panel_interface.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "shell/base/current_session.h"

namespace kalmo {
namespace {

TEST(PanelInterface, ThreeSlotsAreEmptyAndTheRestIsCopied) {
    PDEInterfaceTable operations{};
    operations.Retain = [](void*) { return OSStatus{1}; };
    operations.Prologue = KalmoPDEProlog;
    PDEInterfaceObject* object = nullptr;
    ASSERT_EQ(CreatePanelInterface(operations, &object), noErr);
    EXPECT_EQ(object->table->Retain, nullptr);
    EXPECT_EQ(object->table->Prologue, KalmoPDEProlog);
    DisposePanelInterface(object);
}

TEST(PanelInterface, ExceptionsBecomeTheStatus) {
    EXPECT_EQ(WithoutExceptions(kPMInvalidPDEContext,
                                []() -> OSStatus { throw std::runtime_error("lost"); }),
              kPMInvalidPDEContext);
    EXPECT_EQ(WithoutExceptions(paramErr, []() -> OSStatus { throw 1; }), paramErr);
}

}  // namespace
}  // namespace kalmo
