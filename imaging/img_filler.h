// Fills a window, or the area outside a rectangle in it, with one colour.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"

namespace ruvex {

/// Fills the whole window, or with `useInside` only the area outside the rectangle, in three
/// passes: the rows above it, the columns to both sides of it, and the rows below it.
template <class P>
class VxImgFiller : public VxImgProc1<VxTexture<P>>, public VxIPWindowStack {
public:
    VxImgFiller() : VxIPWindowStack(this) {}

    void pre() override;
    void prePass() override;
    void run() override;
    void post() override;

    P fillColour{};
    bool zero = false;  ///< fill with zero bytes and ignore `colour`
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
