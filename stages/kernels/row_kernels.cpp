#include "stages/kernels/row_kernels.h"

#include "imaging/kernels/dispatch.h"
#include "stages/kernels/row_kernel_table.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

template <class P>
const RowKernels<P>& plainRowKernels() {
    return detail::kRowKernels<P, AnyProcessor>;
}

template <class P>
const RowKernels<P>& bestRowKernels() {
    static const RowKernels<P>& best = fastestVersion<plainRowKernels<P>, avx2RowKernels<P>>();
    return best;
}

template const RowKernels<Rgba8>& plainRowKernels();
template const RowKernels<Rgba8>& bestRowKernels();
template const RowKernels<RgbaS214>& plainRowKernels();
template const RowKernels<RgbaS214>& bestRowKernels();

}  // namespace ruvex
