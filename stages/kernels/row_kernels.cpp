#include "stages/kernels/row_kernels.h"

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
const KernelVersions<RowKernels<P>>& rowKernelVersions() {
    static const KernelVersions versions =
        supportedVersions<plainRowKernels<P>, avx2RowKernels<P>, avx512RowKernels<P>>();
    return versions;
}

template <class P>
const RowKernels<P>& bestRowKernels() {
    static const RowKernels<P>& best = rowKernelVersions<P>().fastest();
    return best;
}

template const RowKernels<Rgba8>& plainRowKernels();
template const KernelVersions<RowKernels<Rgba8>>& rowKernelVersions();
template const RowKernels<Rgba8>& bestRowKernels();
template const RowKernels<RgbaS214>& plainRowKernels();
template const KernelVersions<RowKernels<RgbaS214>>& rowKernelVersions();
template const RowKernels<RgbaS214>& bestRowKernels();

}  // namespace ruvex
