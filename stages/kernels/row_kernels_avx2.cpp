// Compiled with -mavx2. What it defines runs on processors with AVX2 alone.

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
