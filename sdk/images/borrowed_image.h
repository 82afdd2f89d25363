// An image over memory that somebody else owns.

#pragma once

#include "sdk/com/com_ptr.h"
#include "sdk/images/pixel_image.h"

/// The lender keeps the memory until it calls `detach`, which it does before it frees the memory or
/// uses it for something else. A module that then still holds the image finds no pixels in it: the
/// status is E_FAIL and GetPixels gives null. A module must not use an address from GetPixels after
/// its call of Cleanup, the earliest moment at which the host may detach.
class IL_API CDSBorrowedImage final : public CDSPixelImage {
public:
    /// An image that is detached. Null if the format is unknown, a size is below 1, or memory ran
    /// out.
    static ComPtr<CDSBorrowedImage> create(LONG width, LONG height, const GUID& format);

    /// Shows `pixels` from now on, byteCount() bytes aligned as the format's components, which the
    /// module may write to.
    void attach(std::byte* pixels);
    void detach();

private:
    CDSBorrowedImage(LONG width, LONG height, const GUID& format);
    ~CDSBorrowedImage() override = default;
};
