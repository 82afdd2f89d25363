#include "sdk/images/memory_image.h"

#include <new>

CDSMemoryImage::CDSMemoryImage(LONG width, LONG height, const GUID& format)
    : CDSPixelImage(width, height, format), memory_(byteCount()) {
    setPixels(memory_.data());
}

ComPtr<CDSMemoryImage> CDSMemoryImage::create(LONG width, LONG height, const GUID& format) {
    if (byteCountOf(width, height, format) == 0) return nullptr;
    try {
        return ComPtr<CDSMemoryImage>::attach(new CDSMemoryImage(width, height, format));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
