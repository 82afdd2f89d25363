// Conversion between world units, project pixels and pixels of the rendered picture.

#pragma once

#include "sdk/images/image.h"

/// The coordinate manager of one render. World X is in pixels of the project frame; world Y is in
/// pixels divided by the pixel aspect, so that a square in world units looks square.
struct IDSCoordMan : IUnknown {
    /// Converts a world point to pixels of the rendered picture.
    virtual HRESULT WorldToImage(double worldX, double worldY, double* x, double* y) = 0;
    /// Converts a world point to pixels of the project frame. On each axis the ratio of the two
    /// results is the rendered size over the project size.
    virtual HRESULT WorldToProject(double worldX, double worldY, double* x, double* y) = 0;
    /// Gives an image's offset in whole pixels of the rendered picture. `origin` and `size` are the
    /// image's world origin and world size, multiplied on both axes by the project's user size Y /
    /// world size Y.
    virtual HRESULT ImageToPixels(DSFloatPair origin, DSFloatPair size, LONG* offsetX,
                                  LONG* offsetY) = 0;

protected:
    ~IDSCoordMan() = default;
};

inline constexpr GUID IID_IDSCoordMan = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A11");
template <>
struct DSInterfaceTraits<IDSCoordMan> : DSInterface<IID_IDSCoordMan> {};
