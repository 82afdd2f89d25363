#include "stages/kernels/row_kernels.h"

namespace ruvex {

template <class P>
const RowKernels<P>& bestRowKernels() {
    return plainRowKernels<P>();
}

template const RowKernels<Rgba8>& bestRowKernels();
template const RowKernels<RgbaS214>& bestRowKernels();

}  // namespace ruvex
