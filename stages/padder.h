// The source with its margins.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/rows_read.h"

namespace ruvex {

/// Copies a picture into the middle of a larger one, whose offsets say where that lies, and clears
/// what is around it. Rows of the margins that nothing reads stay as they are.
template <class P>
class Padder : public VxImgProc2<VxTexture<P>, VxTexture<P>> {
public:
    void run() override;

    const RowsRead* rowsRead = nullptr;  ///< borrowed, indices from the first row; null is all
};

extern template class Padder<Rgba8>;
extern template class Padder<RgbaS214>;

}  // namespace ruvex
