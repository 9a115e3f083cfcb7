// The memory block's arithmetic, and documents written over one another.
#include "watermark/memory_pdf.h"
#include "graphics/context.h"

namespace kalmo::test {
namespace {

struct Block {
    explicit Block(CFIndex size) { EXPECT_EQ(CreateMemoryConsumer(size, &state), noErr); }
    ~Block() { MemoryProviderReleaseInfo(&state); }
    std::size_t put(std::size_t count) {
        return MemoryConsumerPutBytes(&state, std::string(count, 'x').data(), count);
    }
    MemoryConsumerState state;
};

TEST(MemoryBlock, DoublesUntilTheBytesAndASpareOneFit) {
    const struct {
        const char* why;
        CFIndex size;
        std::size_t skipped, put, grown;
    } kRows[] = {
        {"more than fits", 8, 0, 10, 16},
        {"fits with the spare byte", 11, 0, 10, 11},
        {"spare byte is missing", 10, 0, 10, 20},
        {"an empty block", 0, 0, 5, 8},
        {"twice", 4, 2, 10, 16},
        {"behind the end", 8, 20, 1, 32},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        Block block(row.size);
        EXPECT_EQ(MemoryProviderSkipBytes(&block.state, row.skipped), row.skipped);
        EXPECT_EQ(block.put(row.put), row.put);
        EXPECT_EQ(block.state.size, row.grown);
        EXPECT_EQ(block.state.position, row.skipped + row.put);
        EXPECT_EQ(block.state.block[0], row.skipped ? 0 : 'x');
    }
}

TEST(MemoryBlock, RefusesWhatNoBlockCanHold) {
    Block block(8);
    EXPECT_EQ(MemoryConsumerPutBytes(&block.state, "x", SIZE_MAX), 0u);
    MemoryProviderSkipBytes(&block.state, SIZE_MAX - 1);
    EXPECT_EQ(block.put(4), 0u);
    MemoryProviderSkipBytes(&block.state, 9);
    char byte = 0;
    EXPECT_EQ(MemoryProviderGetBytes(&block.state, &byte, 1), 0u);
    EXPECT_EQ(block.state.size, 8u);
    MemoryConsumerState none;
    EXPECT_EQ(CreateMemoryConsumer(-1, &none), paramErr);
    EXPECT_EQ(MemoryConsumerPutBytes(&none, "x", 1), 0u);
    EXPECT_EQ(MemoryProviderGetBytes(&none, &byte, 1), 1u) << "a block that is not valid";
}

TEST(MemoryBlock, GivesEverythingButTheSpareByte) {
    Block block(8);
    block.put(3);
    MemoryProviderRewind(&block.state);
    std::string got(20, '-');
    EXPECT_EQ(MemoryProviderGetBytes(&block.state, got.data(), 2), 2u);
    EXPECT_EQ(MemoryProviderGetBytes(&block.state, got.data() + 2, 18), 5u);
    EXPECT_EQ(got.substr(0, 8), std::string("xxx\0\0\0\0-", 8));
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
