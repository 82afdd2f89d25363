#include "stages/kernels/row_kernel_table.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

template <class P>
const RowKernels<P>& plainRowKernels() {
    return detail::kRowKernels<P, AnyProcessor>;
}

template const RowKernels<Rgba8>& plainRowKernels();
template const RowKernels<RgbaS214>& plainRowKernels();

}  // namespace ruvex
