#include "support/pdf_documents.h"

namespace kalmo::test {

std::size_t Append(void* info, const void* bytes, std::size_t count) {
    static_cast<std::string*>(info)->append(static_cast<const char*>(bytes), count);
    return count;
}

std::string DrawnPdf(const CGRect& box, const std::function<void(CGContextRef)>& draw, int pages) {
    std::string bytes;
    const auto consumer =
        Owned<CGDataConsumerRef>::Adopt(CGDataConsumerCreate(&bytes, {.putBytes = Append}));
    const auto context = Owned<CGContextRef>::Adopt(CGPDFContextCreate(consumer, &box, nullptr));
    for (int page = 0; page < pages; ++page) {
        CGContextBeginPage(context, &box);
        draw(context);
        CGContextEndPage(context);
    }
    return CGPDFContextClose(context) == noErr ? bytes : std::string();
}

std::string MakePdf(int pages) {
    int height = 0;
    const auto draw = [&](CGContextRef context) {
        CGContextFillRect(context, CGRectMake(72, 72, 100, height += 100));
    };
    return DrawnPdf(CGRectMake(0, 0, 595, 842), draw, pages);
}

}  // namespace kalmo::test
