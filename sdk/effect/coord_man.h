// Who knows how world units, project pixels and the pixels being rendered hang together.

#pragma once

#include "sdk/images/image.h"

/// The coordinate manager of one render. World X counts pixels of the project frame; world Y counts
/// them divided by the pixel aspect, so that a square in the world is a square to the eye.
struct IDSCoordMan : IUnknown {
    /// A world point in pixels of the picture being rendered.
    virtual HRESULT WorldToImage(double worldX, double worldY, double* x, double* y) = 0;
    /// The same point in pixels of the project frame. On each axis the two differ by the rendered
    /// size over the project size.
    virtual HRESULT WorldToProject(double worldX, double worldY, double* x, double* y) = 0;
    /// The place of an image in whole pixels of the picture being rendered. `origin` and `size` are
    /// the image's world origin and size times the project's user size (Y) over its world size (Y),
    /// on both axes.
    virtual HRESULT ImageToPixels(DSFloatPair origin, DSFloatPair size, LONG* offsetX,
                                  LONG* offsetY) = 0;

protected:
    ~IDSCoordMan() = default;
};

inline constexpr GUID IID_IDSCoordMan = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A11");
template <>
struct DSInterfaceTraits<IDSCoordMan> : DSInterface<IID_IDSCoordMan> {};
