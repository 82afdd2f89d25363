// An image that owns its pixels.

#pragma once

#include <vector>

#include "sdk/com/com_ptr.h"
#include "sdk/images/pixel_image.h"

/// Initially all pixels are zero.
class IL_API CDSMemoryImage final : public CDSPixelImage {
public:
    /// Null if the format is unknown, a size is below 1, or memory ran out.
    static ComPtr<CDSMemoryImage> create(LONG width, LONG height, const GUID& format);

    std::byte* bytes() { return memory_.data(); }
    const std::byte* bytes() const { return memory_.data(); }

private:
    CDSMemoryImage(LONG width, LONG height, const GUID& format);
    ~CDSMemoryImage() override = default;

    std::vector<std::byte> memory_;
};
