#include "sdk/images/memory_image.h"

#include <limits>
#include <new>

CDSMemoryImage::CDSMemoryImage(LONG width, LONG height, const GUID& format, std::size_t byteCount)
    : width_(width),
      height_(height),
      format_(format),
      pixels_(byteCount),
      worldSize_{static_cast<float>(width), static_cast<float>(height)} {}

ComPtr<CDSMemoryImage> CDSMemoryImage::create(LONG width, LONG height, const GUID& format) {
    const int bytesPerPixel = DSBytesPerPixel(format);
    if (width < 1 || height < 1 || bytesPerPixel == 0) return nullptr;
    // Can't overflow: two 31-bit sizes and at most 8 bytes per pixel.
    const std::uint64_t bytes = std::uint64_t{1} * static_cast<std::uint64_t>(width) *
                                static_cast<std::uint64_t>(height) *
                                static_cast<std::uint64_t>(bytesPerPixel);
    if (bytes > std::numeric_limits<std::size_t>::max() / 2) return nullptr;
    try {
        return ComPtr<CDSMemoryImage>::attach(
            new CDSMemoryImage(width, height, format, static_cast<std::size_t>(bytes)));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HRESULT CDSMemoryImage::GetStatus() {
    return status_;
}

HRESULT CDSMemoryImage::GetSize(LONG* width, LONG* height) {
    if (!width || !height) return E_POINTER;
    *width = width_;
    *height = height_;
    return S_OK;
}

void* CDSMemoryImage::GetPixels() {
    return pixels_.data();
}

HRESULT CDSMemoryImage::GetFormat(GUID* format) {
    if (!format) return E_POINTER;
    *format = format_;
    return S_OK;
}

HRESULT CDSMemoryImage::GetWorldSize(DSFloatPair* size) {
    if (!size) return E_POINTER;
    *size = worldSize_;
    return S_OK;
}

HRESULT CDSMemoryImage::GetWorldOrigin(DSFloatPair* origin) {
    if (!origin) return E_POINTER;
    *origin = worldOrigin_;
    return S_OK;
}
