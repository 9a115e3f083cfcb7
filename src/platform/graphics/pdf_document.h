// PDF documents read back from a provider, and their pages as pictures.
//
// A document belongs to the thread that made it.
#pragma once

#include "graphics/data_stream.h"
#include "graphics/geometry.h"

#pragma GCC visibility push(default)

/// Reads all bytes of the provider, now; zero bytes behind the document are no part of it. Null
/// when they are no PDF document that opens without a password. The caller releases it.
[[nodiscard]] CGPDFDocumentRef CGPDFDocumentCreateWithProvider(CGDataProviderRef provider);
[[nodiscard]] std::size_t CGPDFDocumentGetNumberOfPages(CGPDFDocumentRef document);
/// At (0, 0) with the page's size; empty for a page that is not there. The first page is 1.
[[nodiscard]] CGRect CGPDFDocumentGetMediaBox(CGPDFDocumentRef document, std::size_t page);
/// The whole page in so many pixels, on white. Null when there is no such page, or a side is 0 or
/// beyond kLongestImageSide. The caller releases it.
[[nodiscard]] CGImageRef CGPDFDocumentCreatePageImage(CGPDFDocumentRef document, std::size_t page,
                                                      std::size_t width, std::size_t height);

#pragma GCC visibility pop
