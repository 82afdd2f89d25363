// Filling a window with one colour, or what lies outside a rectangle in it.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// With `useInside`, the rows below, beside and above the rectangle are filled in three passes, so
/// that the middle rows pay for their two ends alone. Otherwise the whole window is filled.
template <class P>
class VxImgFiller : public VxImgProc1<VxTexture<P>>, public VxIPWindowStack {
public:
    VxImgFiller() : VxIPWindowStack(this) {}

    void pre() override;
    void prePass() override;
    void run() override;
    void post() override;

    P fillColour{};
    bool zero = false;  ///< clear to zero bytes, whatever the colour
    /// The rectangle to keep, in image space; right and bottom are one past the end.
    std::int32_t insideLeft = 0, insideTop = 0, insideRight = 0, insideBottom = 0;
    bool useInside = false;
    std::int32_t fieldMode = 0;  ///< 0 all rows, 1 even rows, 2 odd rows

private:
    void fillColumns(std::int32_t y, std::int32_t first, std::int32_t end);
};

extern template class VxImgFiller<Rgba8>;
extern template class VxImgFiller<RgbaS214>;

}  // namespace ruvex
