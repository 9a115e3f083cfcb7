// Bytes that flow out to a consumer and in from a provider, both made from callbacks.
//
// A callback must return; what it throws is caught and counts as a failure. Consumers and providers
// belong to the thread that uses them.
#pragma once

#include <cstddef>

#include "foundation/object.h"

#pragma GCC visibility push(default)

struct CGDataConsumerCallbacks {
    /// Takes all `count` bytes and returns `count`; any other answer means that writing failed.
    std::size_t (*putBytes)(void* info, const void* buffer, std::size_t count) = nullptr;
    /// May be null; called once, when the consumer is freed.
    void (*releaseConsumer)(void* info) = nullptr;
};

/// `info` stays the caller's until `releaseConsumer`. Null without a `putBytes`. The caller
/// releases the consumer.
[[nodiscard]] CGDataConsumerRef CGDataConsumerCreate(void* info, const CGDataConsumerCallbacks&);
/// True once a write was refused, until the next context is made on the consumer. After a refusal
/// no further bytes are offered.
[[nodiscard]] Boolean CGDataConsumerHasFailed(CGDataConsumerRef consumer);

struct CGDataProviderCallbacks {
    /// Copies at most `count` bytes and returns how many; 0 is the end.
    std::size_t (*getBytes)(void* info, void* buffer, std::size_t count) = nullptr;
    /// Passes over `count` bytes. May be null.
    std::size_t (*skipBytes)(void* info, std::size_t count) = nullptr;
    /// Goes back to the first byte.
    void (*rewind)(void* info) = nullptr;
    /// May be null; called once, when the provider is freed.
    void (*releaseProvider)(void* info) = nullptr;
};

/// A sequential provider, rewound before each reader. Null without `getBytes`. The caller releases
/// it.
[[nodiscard]] CGDataProviderRef CGDataProviderCreate(void* info, const CGDataProviderCallbacks&);

#pragma GCC visibility pop
