#include "stages/kernels/row_kernels_x86.h"

namespace ruvex {

template <class P>
const RowKernels<P>& bestRowKernels() {
    static const RowKernels<P>& best =
        __builtin_cpu_supports("avx2") ? avx2RowKernels<P>() : plainRowKernels<P>();
    return best;
}

template const RowKernels<Rgba8>& bestRowKernels();
template const RowKernels<RgbaS214>& bestRowKernels();

}  // namespace ruvex
