// Compiled with -mavx2: the code in this file may run only on processors with AVX2.

#include "stages/kernels/row_kernel_table.h"

namespace ruvex {
namespace {
struct Avx2;
}

template <class P>
const RowKernels<P>& avx2RowKernels() {
    return detail::kRowKernels<P, Avx2>;
}

template const RowKernels<Rgba8>& avx2RowKernels();
template const RowKernels<RgbaS214>& avx2RowKernels();

}  // namespace ruvex
