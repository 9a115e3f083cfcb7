// Sizes that no memory block can have, and documents written over one another.
#include "watermark/memory_pdf.h"
#include "graphics/context.h"

namespace kalmo::test {
namespace {

struct Block {
    explicit Block(CFIndex size) { EXPECT_EQ(CreateMemoryConsumer(size, &state), noErr); }
    ~Block() { MemoryProviderReleaseInfo(&state); }
    MemoryConsumerState state;
};

TEST(MemoryBlock, RefusesWhatNoBlockCanHold) {
    Block block(8);
    EXPECT_EQ(MemoryConsumerPutBytes(&block.state, "x", SIZE_MAX), 0u);
    MemoryProviderSkipBytes(&block.state, SIZE_MAX - 1);
    EXPECT_EQ(MemoryConsumerPutBytes(&block.state, "x", 1), 0u);
    MemoryProviderSkipBytes(&block.state, 9);
    char byte = 0;
    EXPECT_EQ(MemoryProviderGetBytes(&block.state, &byte, 1), 0u);
    EXPECT_EQ(block.state.size, 8u);
}

TEST(MemoryBlock, AShorterDocumentReplacesALongerOne) {
    Block block(64);
    for (const int pages : {9, 1}) {
        const auto consumer = CreateConsumer(block.state);
        const auto context =
            Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, nullptr, nullptr));
        for (int page = 0; page < pages; ++page) {
            CGContextBeginPage(context, nullptr);
            CGContextEndPage(context);
        }
        EXPECT_EQ(CGPDFContextClose(context), noErr);
        const auto document = CreateDocument(block.state);
        EXPECT_EQ(CGPDFDocumentGetNumberOfPages(document), static_cast<std::size_t>(pages));
    }
}

}  // namespace
}  // namespace kalmo::test
