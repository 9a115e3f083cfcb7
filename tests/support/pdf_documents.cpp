#include "support/pdf_documents.h"

#include "graphics/context.h"

namespace kalmo::test {

std::string MakePdf(int pages) {
    std::string bytes;
    const auto append = [](void* all, const void* part, std::size_t count) {
        static_cast<std::string*>(all)->append(static_cast<const char*>(part), count);
        return count;
    };
    const auto consumer =
        Owned<CGDataConsumerRef>::Adopt(CGDataConsumerCreate(&bytes, {.putBytes = append}));
    const CGRect box = CGRectMake(0, 0, 595, 842);
    const auto context = Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, &box, nullptr));
    for (int page = 0; page < pages; ++page) {
        CGContextBeginPage(context, &box);
        CGContextFillRect(context, CGRectMake(72, 72, 100, 100 * (page + 1)));
        CGContextEndPage(context);
    }
    CGPDFContextClose(context);
    return bytes;
}

}  // namespace kalmo::test
