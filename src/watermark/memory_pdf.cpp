#include "watermark/memory_pdf.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace kalmo {
namespace {

// No object may be larger: the distance between two of its bytes must be a number.
constexpr std::size_t kLargestBlock = PTRDIFF_MAX;

MemoryConsumerState& StateOf(void* info) { return *static_cast<MemoryConsumerState*>(info); }

/// Bytes between the position and the spare byte.
std::size_t Room(const MemoryConsumerState& state) {
    return state.position < state.size ? state.size - state.position - 1 : 0;
}

/// The doubled size at which `count` bytes and the spare one fit; 0 when no block can be so large.
std::size_t SizeFor(const MemoryConsumerState& state, std::size_t count) {
    if (state.position >= kLargestBlock || count >= kLargestBlock - state.position) return 0;
    std::size_t size = std::max<std::size_t>(state.size, 1);
    while (size <= state.position || count > size - state.position - 1) {
        if (size > kLargestBlock / 2) return 0;
        size *= 2;
    }
    return size;
}

/// The new bytes are zero: a skip may leave some of them unwritten.
bool Grow(MemoryConsumerState& state, std::size_t size) {
    auto* const block = size ? static_cast<UInt8*>(std::realloc(state.block, size)) : nullptr;
    if (!block) return false;
    std::memset(block + state.size, 0, size - state.size);
    state.block = block;
    state.size = size;
    return true;
}

void Free(MemoryConsumerState& state) {
    std::free(state.block);
    state = {};
}

}  // namespace

OSStatus CreateMemoryConsumer(CFIndex initialSize, MemoryConsumerState* state) {
    if (!state || initialSize < 0) return paramErr;
    const auto size = static_cast<std::size_t>(initialSize);
    // An empty block is valid too, and may be extended.
    auto* const block = static_cast<UInt8*>(std::calloc(std::max<std::size_t>(size, 1), 1));
    *state = block ? MemoryConsumerState{0, size, block} : MemoryConsumerState{};
    return block ? noErr : memFullErr;
}

std::size_t MemoryConsumerPutBytes(void* info, const void* buffer, std::size_t count) {
    MemoryConsumerState& state = StateOf(info);
    if (!state.block || count == 0) return 0;
    if (count > Room(state) && !Grow(state, SizeFor(state, count))) return 0;
    std::memcpy(state.block + state.position, buffer, count);
    state.position += count;
    return count;
}

void MemoryConsumerReleaseInfo(void* info) { Free(StateOf(info)); }

std::size_t MemoryProviderGetBytes(void* info, void* buffer, std::size_t count) {
    MemoryConsumerState& state = StateOf(info);
    if (!state.block) return count;
    const std::size_t got = std::min(count, Room(state));
    if (got) std::memcpy(buffer, state.block + state.position, got);
    state.position += got;
    return got;
}

void MemoryProviderRewind(void* info) { StateOf(info).position = 0; }

std::size_t MemoryProviderSkipBytes(void* info, std::size_t count) {
    std::size_t& position = StateOf(info).position;
    position += std::min(count, SIZE_MAX - position);
    return count;
}

void MemoryProviderReleaseInfo(void* info) { Free(StateOf(info)); }

Owned<CGDataConsumerRef> CreateConsumer(MemoryConsumerState& state) {
    state.position = 0;
    return Owned<CGDataConsumerRef>::Adopt(
        CGDataConsumerCreate(&state, {.putBytes = MemoryConsumerPutBytes}));
}

Owned<CGPDFDocumentRef> CreateDocument(MemoryConsumerState& state) {
    if (!state.block) return {};
    if (state.position < state.size) {
        std::memset(state.block + state.position, 0, state.size - state.position);
    }
    const auto provider = Owned<CGDataProviderRef>::Adopt(
        CGDataProviderCreate(&state, {.getBytes = MemoryProviderGetBytes,
                                      .skipBytes = MemoryProviderSkipBytes,
                                      .rewind = MemoryProviderRewind}));
    return Owned<CGPDFDocumentRef>::Adopt(CGPDFDocumentCreateWithProvider(provider));
}

}  // namespace kalmo
