// Factory, plug-in object and interface object.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

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
    CFIndex instances() const { return CFPlugInInstanceCount(UUID(CFSTR(kKalmoFactoryUUID))); }

    const CFUUIDBytes extension = CFUUIDGetUUIDBytes(UUID(CFSTR(kDialogExtensionInterfaceUUID)));
    const std::size_t values = (Product(), CFLiveValueCount());
    void* instance = CreateInstance();
};

TEST_F(PluginEntry, AnyOtherTypeIsRefusedAndRegistersNothing) {
    const auto factory = reinterpret_cast<PDEFactory>(
        CFBundleGetFunctionPointerForName(Product(), CFSTR("KalmoPDEPluginFactory")));
    ASSERT_NE(factory, nullptr);
    const CFIndex before = instances();
    EXPECT_EQ(factory(nullptr, UUID(CFSTR(kKalmoFactoryUUID))), nullptr);
    EXPECT_EQ(factory(nullptr, nullptr), nullptr);
    EXPECT_EQ(instances(), before);
    EXPECT_EQ(unknown().Release(instance), 0u);
}

TEST_F(PluginEntry, TheInstanceLivesUntilItsLastRelease) {
    CFUUIDBytes id;
    std::memcpy(id.bytes, kIUnknownUUIDBytes, sizeof id);
    ASSERT_EQ(instances(), 1);
    EXPECT_EQ(query(id, noErr), instance);
    EXPECT_EQ(unknown().AddRef(instance), 3u);
    EXPECT_EQ(unknown().Release(instance), 2u);
    EXPECT_EQ(unknown().Release(instance), 1u);
    EXPECT_EQ(instances(), 1);
    const auto release = unknown().Release;
    EXPECT_EQ(release(instance), 0u);
    EXPECT_EQ(instances(), 0);
    EXPECT_EQ(release(nullptr), 0u);
    EXPECT_LE(CFLiveValueCount(), values);
}

TEST_F(PluginEntry, AnUnknownInterfaceIsRefused) {
    EXPECT_EQ(query({}, kENoInterface), nullptr);
    EXPECT_EQ(unknown().Release(instance), 0u);
}

TEST_F(PluginEntry, EachQueryMakesAnInterfaceOfItsOwn) {
    void* first = query(extension, noErr);
    void* second = query(extension, noErr);
    EXPECT_EQ(unknown().Release(instance), 0u) << "queries do not count the instance";
    ASSERT_TRUE(first && second && first != second);
    const PDEInterfaceTable& table = *static_cast<PDEInterfaceObject*>(first)->table;
    EXPECT_NE(&table, static_cast<PDEInterfaceObject*>(second)->table);

    PMPlugInAPIVersion version{9, 9, 9, 9};
    EXPECT_EQ(table.GetAPIVersion(first, &version), noErr);
    EXPECT_EQ(version.buildVersionMajor * 10 + version.buildVersionMinor, 10u);
    EXPECT_EQ(version.baseVersionMajor * 10 + version.baseVersionMinor, 10u);

    EXPECT_EQ(table.Retain(first), noErr);
    const auto release = table.Release;
    void* pointer = first;
    EXPECT_EQ(release(&pointer), noErr);
    EXPECT_EQ(pointer, nullptr) << "the caller's pointer goes although the object stays";
    EXPECT_EQ(release(&pointer), noErr);
    EXPECT_EQ(release(&first), noErr);
    EXPECT_EQ(release(&second), noErr);
}

}  // namespace
}  // namespace kalmo::test
