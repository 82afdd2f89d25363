// Scanlines: rows darkened by a sawtooth.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"

namespace ruvex {

/// Multiplies all four components of a row by a factor that rises from 1/4 in the first row of a
/// period to nearly 1 in its last. Source and target may be the same texture.
template <class P>
class VxScanLineAdder : public VxImgProc2<VxTexture<P>, VxTexture<P>> {
public:
    void run() override;

    std::int32_t lineWidth = 0;  ///< the period in rows; 1 and below: no change

private:
    float factorOf(std::int32_t y) const;
};

extern template class VxScanLineAdder<Rgba8>;
extern template class VxScanLineAdder<RgbaS214>;

}  // namespace ruvex
