// An image that owns its pixels.

#pragma once

#include <cstddef>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/image.h"

/// Initially all pixels are zero, the status is 0, the world origin is (0, 0) and the world size is
/// the size in pixels. One thread sets it up; then any number of threads may read it.
class IL_API CDSMemoryImage final : public ComObject<IDSImage> {
public:
    /// Null if the format is unknown, a size is below 1, or memory ran out.
    static ComPtr<CDSMemoryImage> create(LONG width, LONG height, const GUID& format);

    HRESULT GetStatus() override;
    HRESULT GetSize(LONG* width, LONG* height) override;
    void* GetPixels() override;
    HRESULT GetFormat(GUID* format) override;
    HRESULT GetWorldSize(DSFloatPair* size) override;
    HRESULT GetWorldOrigin(DSFloatPair* origin) override;

    void setWorldSize(DSFloatPair size) { worldSize_ = size; }
    void setWorldOrigin(DSFloatPair origin) { worldOrigin_ = origin; }
    /// Sets the result of GetStatus; 0 means that the pixels are available.
    void setStatus(HRESULT status) { status_ = status; }

    LONG width() const { return width_; }
    LONG height() const { return height_; }
    const GUID& format() const { return format_; }
    std::byte* bytes() { return pixels_.data(); }
    const std::byte* bytes() const { return pixels_.data(); }
    /// Size of all pixels: width * height * bytes per pixel.
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
