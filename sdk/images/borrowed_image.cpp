#include "sdk/images/borrowed_image.h"

#include <new>

CDSBorrowedImage::CDSBorrowedImage(LONG width, LONG height, const GUID& format)
    : CDSPixelImage(width, height, format) {
    detach();
}

ComPtr<CDSBorrowedImage> CDSBorrowedImage::create(LONG width, LONG height, const GUID& format) {
    if (byteCountOf(width, height, format) == 0) return nullptr;
    return ComPtr<CDSBorrowedImage>::attach(new (std::nothrow)
                                                CDSBorrowedImage(width, height, format));
}

void CDSBorrowedImage::attach(std::byte* pixels) {
    setPixels(pixels);
    setStatus(S_OK);
}

void CDSBorrowedImage::detach() {
    setStatus(E_FAIL);
    setPixels(nullptr);
}
