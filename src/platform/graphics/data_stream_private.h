// What contexts and documents ask of consumers and providers. Private to the platform library.
#pragma once

#include <optional>
#include <string>

#include "graphics/data_stream.h"

namespace kalmo::graphics {

/// A reader never takes in more than this from one provider.
inline constexpr std::size_t kMostProvidedBytes = std::size_t{256} << 20;

/// Forgets an earlier failure: a new document begins.
void BeginConsuming(CGDataConsumerRef consumer);
/// False when the consumer refuses, or has refused before.
[[nodiscard]] bool Consume(CGDataConsumerRef consumer, const void* bytes,
                           std::size_t count) noexcept;
/// All bytes from the first; nothing when there are too many or the provider failed.
[[nodiscard]] std::optional<std::string> ReadAll(CGDataProviderRef provider) noexcept;

}  // namespace kalmo::graphics
