// Compiled with -mavx2; what it defines is called only where the processor has that.

#include "stages/kernels/row_kernel_table.h"
#include "stages/kernels/row_kernels_x86.h"

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
