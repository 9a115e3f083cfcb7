// Picture files that a user chooses: their headers tell sizes that nobody checked.
#include <cstddef>
#include <cstdint>

#include "graphics/image.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Owned<GraphicsImportComponent> importer;
    Owned<CGImageRef> image;
    if (GetGraphicsImporterForBytes(bytes, size, importer.adopt()) != noErr) return 0;
    // As for a preview: every pixel of a vast picture would only cost time.
    GraphicsImportSetDecodedSize(importer, 64, 64);
    GraphicsImportCreateCGImage(importer, image.adopt(), 0);
    return 0;
}
