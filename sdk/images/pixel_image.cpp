#include "sdk/images/pixel_image.h"

#include <limits>

CDSPixelImage::CDSPixelImage(LONG width, LONG height, const GUID& format)
    : width_(width),
      height_(height),
      format_(format),
      byteCount_(byteCountOf(width, height, format)),
      worldSize_{static_cast<float>(width), static_cast<float>(height)} {}

std::size_t CDSPixelImage::byteCountOf(LONG width, LONG height, const GUID& format) {
    const int bytesPerPixel = DSBytesPerPixel(format);
    if (width < 1 || height < 1 || bytesPerPixel == 0) return 0;
    // Can't overflow: two 31-bit sizes and at most 8 bytes per pixel.
    const std::uint64_t bytes = std::uint64_t{1} * static_cast<std::uint64_t>(width) *
                                static_cast<std::uint64_t>(height) *
                                static_cast<std::uint64_t>(bytesPerPixel);
    if (bytes > std::numeric_limits<std::size_t>::max() / 2) return 0;
    return static_cast<std::size_t>(bytes);
}

HRESULT CDSPixelImage::GetStatus() {
    return status_;
}

HRESULT CDSPixelImage::GetSize(LONG* width, LONG* height) {
    if (!width || !height) return E_POINTER;
    *width = width_;
    *height = height_;
    return S_OK;
}

void* CDSPixelImage::GetPixels() {
    return pixels_;
}

HRESULT CDSPixelImage::GetFormat(GUID* format) {
    if (!format) return E_POINTER;
    *format = format_;
    return S_OK;
}

HRESULT CDSPixelImage::GetWorldSize(DSFloatPair* size) {
    if (!size) return E_POINTER;
    *size = worldSize_;
    return S_OK;
}

HRESULT CDSPixelImage::GetWorldOrigin(DSFloatPair* origin) {
    if (!origin) return E_POINTER;
    *origin = worldOrigin_;
    return S_OK;
}
