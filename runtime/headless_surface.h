// A viewer surface off screen, for tests and for pictures of the on-screen controls.

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/viewer/viewer_surface.h"

namespace ruvex::runtime {

class CurrentContext;
class HeadlessContext;

/// Pixels in memory with an OpenGL context of their own (compatibility profile): pbuffers of EGL,
/// without a window system, or of Windows. A pixel is four bytes: red, green, blue, alpha; the
/// first row is the bottom one. It is used and released on the thread that has created it.
class HeadlessSurface final : public ComObject<IViewerSurface> {
public:
    /// A surface of black, transparent pixels; opaque ones if the driver has no alpha. Its world
    /// rectangle is (0, 0) to (width, height). Throws Error if the system's OpenGL lacks what is
    /// needed, or for a size that is not positive.
    static ComPtr<HeadlessSurface> create(LONG width, LONG height);

    /// E_UNEXPECTED if it has begun already; E_FAIL if the context can't be made current.
    HRESULT Begin(tagVWOPENGLSURFACE* surface) override;
    /// Makes the context current that was so before Begin. E_UNEXPECTED if it has not begun.
    HRESULT End() override;

    /// Uses the low left part of the pixels from now on, as a surface of this size; the world
    /// rectangle stays. A surface whose size changes keeps its context in this way, and with it the
    /// display lists of the tools. Throws Error for a size that is not positive or larger than that
    /// of `create`, and during a render.
    void useSize(LONG width, LONG height);

    /// The part of the world that is visible.
    void setWorld(double x, double y, double width, double height);

    // These throw Error if the context can't be made current.

    /// Fills all pixels with one colour, 0..1 a channel.
    void clear(float red, float green, float blue, float alpha = 1.0f);
    /// Replaces all pixels: 4 * width * height bytes. Throws Error for another size and during a
    /// render.
    void setPixels(const std::vector<std::uint8_t>& rgba);
    std::vector<std::uint8_t> pixels() const;

private:
    HeadlessSurface(LONG width, LONG height);
    ~HeadlessSurface() override;

    /// Of the pixels in use.
    std::size_t byteCount() const;

    const LONG fullWidth_;
    const LONG fullHeight_;
    tagVWOPENGLSURFACE info_;
    std::unique_ptr<HeadlessContext> context_;
    /// Set between Begin and End.
    std::unique_ptr<CurrentContext> render_;
};

}  // namespace ruvex::runtime
