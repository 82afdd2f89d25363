// The line structure of a tube: rows darkened in a sawtooth.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"

namespace ruvex {

/// Dims all four components of a row by a factor that rises from a quarter at the first row of a
/// period to nearly 1 at its last. Source and target may be one texture.
template <class P>
class VxScanLineAdder : public VxImgProc2<VxTexture<P>, VxTexture<P>> {
public:
    void run() override;

    std::int32_t lineWidth = 0;  ///< the period in rows; 1 and below change nothing

private:
    float factorOf(std::int32_t y) const;
};

extern template class VxScanLineAdder<Rgba8>;
extern template class VxScanLineAdder<RgbaS214>;

}  // namespace ruvex
