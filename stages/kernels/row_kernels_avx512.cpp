// Compiled for 512-bit vectors: the code in this file may run only on processors that have them.

#include "stages/kernels/row_kernel_table.h"

namespace ruvex {
namespace {
struct Avx512;
}

template <class P>
const RowKernels<P>& avx512RowKernels() {
    return detail::kRowKernels<P, Avx512>;
}

template const RowKernels<Rgba8>& avx512RowKernels();
template const RowKernels<RgbaS214>& avx512RowKernels();

}  // namespace ruvex
