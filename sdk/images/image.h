// The host's picture as a module sees it, and the formats its pixels come in.

#pragma once

#include "sdk/com/interface_traits.h"

/// 8 bits a component, 4 bytes a pixel: red, green, blue, alpha.
inline constexpr GUID MFIF_RGBA_RAW_32 =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A01");
/// Signed 16 bits a component with white at 16384, 8 bytes a pixel, in the same order.
inline constexpr GUID MFIF_RGBA_S2_14 = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A02");
/// One byte a pixel: the mask of a paint stroke.
inline constexpr GUID MFIF_A_RAW_8 = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A03");

/// Bytes a pixel of the format; 0 for a format that is not among the three.
inline int DSBytesPerPixel(const GUID& format) {
    if (format == MFIF_RGBA_RAW_32) return 4;
    if (format == MFIF_RGBA_S2_14) return 8;
    return format == MFIF_A_RAW_8 ? 1 : 0;
}

/// Two numbers of single precision: a point or a size in world units.
struct DSFloatPair {
    float x;
    float y;

    friend bool operator==(const DSFloatPair&, const DSFloatPair&) = default;
};

/// A picture in memory. Rows follow each other without padding; row 0 comes first.
struct IDSImage : IUnknown {
    /// The readiness test: 0 when the pixels are there, otherwise why they are not.
    virtual HRESULT GetStatus() = 0;
    /// Width and height in pixels.
    virtual HRESULT GetSize(LONG* width, LONG* height) = 0;
    /// The first pixel of row 0. It stays where it is as long as the image lives. A module may
    /// write into every image that it was handed, inputs included.
    virtual void* GetPixels() = 0;
    virtual HRESULT GetFormat(GUID* format) = 0;
    /// The picture's size in world units.
    virtual HRESULT GetWorldSize(DSFloatPair* size) = 0;
    /// The place of its low corner in world units.
    virtual HRESULT GetWorldOrigin(DSFloatPair* origin) = 0;

protected:
    ~IDSImage() = default;
};

inline constexpr GUID IID_IDSImage = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A10");
template <>
struct DSInterfaceTraits<IDSImage> : DSInterface<IID_IDSImage> {};
