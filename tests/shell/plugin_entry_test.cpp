// Factory, plug-in object and interface object.
#include <gtest/gtest.h>

#include <cstring>

#include "shell/product.h"

namespace kalmo::test {
namespace {

struct PluginEntry : testing::Test {
    const IUnknownTable& unknown() const { return **static_cast<const IUnknownTable**>(instance); }
    void* query(CFUUIDBytes id, OSStatus expected) const {
        void* object = instance;
        EXPECT_EQ(unknown().QueryInterface(instance, id, &object), expected);
        return object;
    }
    static CFIndex Instances() { return CFPlugInInstanceCount(UUID(kKalmoFactoryUUID)); }

    void* instance = CreateInstance();
};

TEST_F(PluginEntry, TheInstanceLivesUntilItsLastRelease) {
    const auto factory = reinterpret_cast<PDEFactory>(
        CFBundleGetFunctionPointerForName(Product(), CFSTR("KalmoPDEPluginFactory")));
    EXPECT_EQ(factory(nullptr, UUID(kKalmoFactoryUUID)), nullptr) << "another type";
    EXPECT_EQ(query({}, kENoInterface), nullptr);
    EXPECT_EQ(Instances(), 1);

    CFUUIDBytes id;
    std::memcpy(id.bytes, kIUnknownUUIDBytes, sizeof id);
    EXPECT_EQ(query(id, noErr), instance);
    EXPECT_EQ(unknown().AddRef(instance), 3u);
    unknown().Release(instance);
    EXPECT_EQ(unknown().Release(instance), 1u);
    const auto release = unknown().Release;
    EXPECT_EQ(release(instance), 0u);
    EXPECT_EQ(Instances(), 0);
}

TEST_F(PluginEntry, EachQueryMakesAnInterfaceOfItsOwn) {
    const CFUUIDBytes id = CFUUIDGetUUIDBytes(UUID(kDialogExtensionInterfaceUUID));
    void* first = query(id, noErr);
    void* second = query(id, noErr);
    EXPECT_EQ(unknown().Release(instance), 0u) << "queries do not count the instance";
    const PDEInterfaceTable* table = static_cast<PDEInterfaceObject*>(first)->table;
    EXPECT_NE(table, static_cast<PDEInterfaceObject*>(second)->table);
    EXPECT_EQ(table->Retain(first), noErr);
    const auto release = table->Release;
    void* pointer = first;
    EXPECT_EQ(release(&pointer), noErr);
    EXPECT_EQ(pointer, nullptr) << "the caller's pointer goes although the object stays";
    for (void** object : {&pointer, &first, &second}) EXPECT_EQ(release(object), noErr);
}

}  // namespace
}  // namespace kalmo::test
