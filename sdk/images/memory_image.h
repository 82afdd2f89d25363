// A picture over memory of its own.

#pragma once

#include <cstddef>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/image.h"

/// An image that owns its pixels, zero at first. Origin (0, 0), world size = size in pixels, ready.
/// Set up by one thread, read by any.
class IL_API CDSMemoryImage final : public ComObject<IDSImage> {
public:
    /// Null when the format is unknown, a size is below 1, or there is no memory for the pixels.
    static ComPtr<CDSMemoryImage> create(LONG width, LONG height, const GUID& format);

    HRESULT GetStatus() override;
    HRESULT GetSize(LONG* width, LONG* height) override;
    void* GetPixels() override;
    HRESULT GetFormat(GUID* format) override;
    HRESULT GetWorldSize(DSFloatPair* size) override;
    HRESULT GetWorldOrigin(DSFloatPair* origin) override;

    void setWorldSize(DSFloatPair size) { worldSize_ = size; }
    void setWorldOrigin(DSFloatPair origin) { worldOrigin_ = origin; }
    /// What the readiness test answers from now on; 0 is ready.
    void setStatus(HRESULT status) { status_ = status; }

    LONG width() const { return width_; }
    LONG height() const { return height_; }
    const GUID& format() const { return format_; }
    std::byte* bytes() { return pixels_.data(); }
    const std::byte* bytes() const { return pixels_.data(); }
    /// All pixels: width * height * bytes a pixel.
    std::size_t byteCount() const { return pixels_.size(); }

    CDSMemoryImage(const CDSMemoryImage&) = delete;
    CDSMemoryImage& operator=(const CDSMemoryImage&) = delete;

private:
    CDSMemoryImage(LONG width, LONG height, const GUID& format, std::size_t byteCount);
    ~CDSMemoryImage() override = default;

    LONG width_;
    LONG height_;
    GUID format_;
    std::vector<std::byte> pixels_;
    DSFloatPair worldSize_;
    DSFloatPair worldOrigin_{0.0f, 0.0f};
    HRESULT status_ = S_OK;
};
