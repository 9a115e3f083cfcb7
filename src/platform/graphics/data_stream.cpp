#include "graphics/data_stream.h"

#include "foundation/object_private.h"
#include "graphics/data_stream_private.h"

namespace {

using kalmo::foundation::As;
using kalmo::foundation::Object;
using kalmo::foundation::TypeRecord;

const TypeRecord kConsumerType{"data consumer", nullptr, nullptr, nullptr};
const TypeRecord kProviderType{"data provider", nullptr, nullptr, nullptr};

constexpr std::size_t kChunk = std::size_t{64} << 10;

}  // namespace

struct CGDataConsumerObject final : Object {
    CGDataConsumerObject(void* owner, const CGDataConsumerCallbacks& functions)
        : Object(kConsumerType), info(owner), callbacks(functions) {}
    ~CGDataConsumerObject() override {
        if (callbacks.releaseConsumer) callbacks.releaseConsumer(info);
    }

    void* info;
    CGDataConsumerCallbacks callbacks;
    bool failed = false;
};

struct CGDataProviderObject final : Object {
    CGDataProviderObject(void* owner, const CGDataProviderCallbacks& functions)
        : Object(kProviderType), info(owner), callbacks(functions) {}
    ~CGDataProviderObject() override {
        if (callbacks.releaseProvider) callbacks.releaseProvider(info);
    }

    void* info;
    CGDataProviderCallbacks callbacks;
};

namespace kalmo::graphics {

void BeginConsuming(CGDataConsumerRef consumer) {
    if (auto* const found = As<CGDataConsumerObject>(consumer, kConsumerType))
        found->failed = false;
}

bool Consume(CGDataConsumerRef consumer, const void* bytes, std::size_t count) noexcept {
    auto* const found = As<CGDataConsumerObject>(consumer, kConsumerType);
    if (!found || found->failed) return false;
    try {
        found->failed = found->callbacks.putBytes(found->info, bytes, count) != count;
    } catch (...) {
        found->failed = true;
    }
    return !found->failed;
}

std::optional<std::string> ReadAll(CGDataProviderRef provider) noexcept try {
    const auto* const found = As<CGDataProviderObject>(provider, kProviderType);
    if (!found) return std::nullopt;
    if (found->callbacks.rewind) found->callbacks.rewind(found->info);
    std::string all;
    while (all.size() <= kMostProvidedBytes) {
        const std::size_t before = all.size();
        all.resize(before + kChunk);
        const std::size_t got = found->callbacks.getBytes(found->info, all.data() + before, kChunk);
        if (got > kChunk) return std::nullopt;
        all.resize(before + got);
        if (got == 0) return all;
    }
    return std::nullopt;
} catch (...) {
    return std::nullopt;
}

}  // namespace kalmo::graphics

CGDataConsumerRef CGDataConsumerCreate(void* info, const CGDataConsumerCallbacks& callbacks) {
    return callbacks.putBytes ? new CGDataConsumerObject(info, callbacks) : nullptr;
}

Boolean CGDataConsumerHasFailed(CGDataConsumerRef consumer) {
    const auto* const found = As<CGDataConsumerObject>(consumer, kConsumerType);
    return found && found->failed;
}

CGDataProviderRef CGDataProviderCreate(void* info, const CGDataProviderCallbacks& callbacks) {
    return callbacks.getBytes ? new CGDataProviderObject(info, callbacks) : nullptr;
}
