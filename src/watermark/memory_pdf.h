// A growable memory block that PDF bytes are written into and read back from: the callbacks of a
// data consumer and of a sequential data provider over one state.
//
// The state is the owner's and must outlive both; it is used by one thread at a time. A preview
// keeps one state for its life and rewrites it at every redraw:
//
//     const auto consumer = CreateConsumer(state);       // from the first byte again
//     ... draw through a PDF context on it, close the context ...
//     const auto document = CreateDocument(state);       // what was just written
#pragma once

#include <cstddef>

#include "graphics/data_stream.h"
#include "graphics/pdf_document.h"
#include "kalmo/statuses.h"

namespace kalmo {

/// The last byte of the block always stays spare.
struct MemoryConsumerState {
    std::size_t position = 0;
    std::size_t size = 0;
    UInt8* block = nullptr;  // null: not valid; freed by the two Release callbacks
};

/// Allocates the block, its bytes zero, at position 0; what the state held before is not freed.
/// memFullErr, the state not valid, when there is no memory; paramErr for a negative size.
OSStatus CreateMemoryConsumer(CFIndex initialSize, MemoryConsumerState* state);

// The callbacks; `info` is the MemoryConsumerState.

/// Copies `count` bytes to the position and advances it. The block's size doubles until they and
/// the spare byte fit, an empty block growing from 1. 0, with nothing written, when it cannot grow.
std::size_t MemoryConsumerPutBytes(void* info, const void* buffer, std::size_t count);
/// Frees the block. Once freed it is not valid, and releasing again does nothing.
void MemoryConsumerReleaseInfo(void* info);
/// Copies what there is between the position and the spare byte, at most `count`, and advances.
/// Returns how much; `count`, with nothing copied, when the block is not valid.
std::size_t MemoryProviderGetBytes(void* info, void* buffer, std::size_t count);
void MemoryProviderRewind(void* info);
/// Advances the position, also beyond the block's end; returns `count`.
std::size_t MemoryProviderSkipBytes(void* info, std::size_t count);
void MemoryProviderReleaseInfo(void* info);

/// A consumer that writes from the first byte. The block stays the state's.
[[nodiscard]] Owned<CGDataConsumerRef> CreateConsumer(MemoryConsumerState& state);
/// The document that ends at the position. What an earlier, longer one left behind it is wiped.
/// Null when the block holds none.
[[nodiscard]] Owned<CGPDFDocumentRef> CreateDocument(MemoryConsumerState& state);

}  // namespace kalmo
