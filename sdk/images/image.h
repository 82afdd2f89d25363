// The interface of the host's images, and their pixel formats.

#pragma once

#include "sdk/com/interface_traits.h"

/// 8 bits per component, 4 bytes per pixel: red, green, blue, alpha.
inline constexpr GUID MFIF_RGBA_RAW_32 =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A01");
/// Signed 16 bits per component with white at 16384, 8 bytes per pixel, in the same order.
inline constexpr GUID MFIF_RGBA_S2_14 = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A02");
/// One byte per pixel: the mask of a paint stroke.
inline constexpr GUID MFIF_A_RAW_8 = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A03");

/// Bytes per pixel of one of these formats; 0 for any other.
inline int DSBytesPerPixel(const GUID& format) {
    if (format == MFIF_RGBA_RAW_32) return 4;
    if (format == MFIF_RGBA_S2_14) return 8;
    return format == MFIF_A_RAW_8 ? 1 : 0;
}

/// A point or a size in world units.
struct DSFloatPair {
    float x;
    float y;

    friend bool operator==(const DSFloatPair&, const DSFloatPair&) = default;
};

/// An image in memory. Rows are stored without padding, row 0 first.
struct IDSImage : IUnknown {
    /// 0 if the pixels are available, otherwise an error code.
    virtual HRESULT GetStatus() = 0;
    /// Width and height in pixels.
    virtual HRESULT GetSize(LONG* width, LONG* height) = 0;
    /// The first pixel of row 0. The address is valid as long as the module holds the image, and at
    /// most until its call of Cleanup: the memory may be the host's own, for its next frame. A
    /// module may write to every image that it was given, including inputs.
    virtual void* GetPixels() = 0;
    virtual HRESULT GetFormat(GUID* format) = 0;
    /// The picture's size in world units.
    virtual HRESULT GetWorldSize(DSFloatPair* size) = 0;
    /// The world coordinates of the corner with the smallest X and Y.
    virtual HRESULT GetWorldOrigin(DSFloatPair* origin) = 0;

protected:
    ~IDSImage() = default;
};

inline constexpr GUID IID_IDSImage = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A10");
template <>
struct DSInterfaceTraits<IDSImage> : DSInterface<IID_IDSImage> {};
