// A rectangle in the viewer that the pen can move and resize.

#pragma once

#include "overlay/vx_t_object.h"

namespace ruvex {

/// Corners with x0 <= x1 and y0 <= y1.
struct VxRect {
    float x0 = 0.0f, y0 = 0.0f, x1 = 0.0f, y1 = 0.0f;

    friend bool operator==(const VxRect&, const VxRect&) = default;
};

/// Has handles on its edges, and a cross in its centre that moves it. Sends DragBegins,
/// ValueChanged and DragEnded without a payload.
class VxTRectangle : public VxTObject, public VxMessageSender {
public:
    enum Handle : std::uint32_t {
        kLeft = 1,
        kRight = 2,
        kBottom = 4,
        kTop = 8,
        kMoveX = 16,
        kMoveY = 32,
    };
    enum LimitFlags : std::uint32_t { kLimited = 1 };

    VxTRectangle(const char* objectName, float x0, float y0, float x1, float y1);

    VxHit hit(const VxPosition& where, const VxPosition& radius) override;
    void draw() override;
    std::int32_t drag(const VxPosition& where) override;
    std::int32_t penDown(const VxPosition& where) override;
    std::int32_t penUp() override;
    ~VxTRectangle() override = default;
    /// Sorts the corners and clamps them to the limits.
    virtual void setRect(float x0, float y0, float x1, float y1);

    VxRect rect;
    std::uint32_t handle = 0;  ///< The active handles, bits of Handle.
    VxPosition lastPen;        ///< At the last step of a drag.
    VxRect limits;             ///< In force if `limitFlags` says so.
    std::uint32_t limitFlags = 0;

protected:
    /// The edges of `rect` within a radius of the position. Left, or else right, if the position is
    /// within the range in Y; top, or else bottom, if it is within the range in X.
    std::uint32_t edgesAt(const VxPosition& where, const VxPosition& radius,
                          const VxRect& range) const;
    /// Stores the active handles and sets the focus; 0 clears both. Gives the result of a hit test.
    VxHit activate(std::uint32_t newHandle);
    /// Draws a line as its state says: two colours if the pen is over the object, white for an
    /// active handle.
    void drawHandleLine(const VxRect& line, const VxColour& lineColour, bool active) const;
    /// Sorts the corners, clamps them to the limits and stores them. Returns them sorted, not
    /// clamped.
    VxRect storeRect(VxRect corners);

private:
    std::uint32_t crossAt(const VxPosition& where, const VxPosition& radius) const;
    VxRect dragged(VxPosition delta) const;
    void drawCross() const;
    void drawEdges() const;
};

/// A rectangle that is limited to a frame.
class VxTCropBox : public VxTRectangle {
public:
    using VxTRectangle::VxTRectangle;
    ~VxTCropBox() override = default;
};

}  // namespace ruvex
