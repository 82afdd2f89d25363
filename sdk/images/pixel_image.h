// What the images of this library have in common.

#pragma once

#include <atomic>
#include <cstddef>

#include "sdk/com/com_object.h"
#include "sdk/images/image.h"

/// An image of one size and format. At first the status is 0, the world origin is (0, 0) and the
/// world size is the size in pixels. One thread sets it up; then any number of threads may read it.
class IL_API CDSPixelImage : public ComObject<IDSImage> {
public:
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
    /// Size of all pixels: width * height * bytes per pixel.
    std::size_t byteCount() const { return byteCount_; }

    CDSPixelImage(const CDSPixelImage&) = delete;
    CDSPixelImage& operator=(const CDSPixelImage&) = delete;

protected:
    /// Size and format are those of a byteCountOf that is not 0.
    CDSPixelImage(LONG width, LONG height, const GUID& format);
    ~CDSPixelImage() override = default;

    /// The bytes of an image; 0 if the format is unknown, a size is below 1, or the bytes are more
    /// than memory can hold.
    static std::size_t byteCountOf(LONG width, LONG height, const GUID& format);

    /// What GetPixels gives from now on.
    void setPixels(std::byte* pixels) { pixels_ = pixels; }

private:
    LONG width_;
    LONG height_;
    GUID format_;
    std::size_t byteCount_;
    // An image that was taken back may still be asked by a thread that should have released it.
    std::atomic<std::byte*> pixels_{nullptr};
    std::atomic<HRESULT> status_{S_OK};
    DSFloatPair worldSize_;
    DSFloatPair worldOrigin_{0.0f, 0.0f};
};
