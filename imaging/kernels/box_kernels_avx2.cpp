// Compiled with -mavx2; what it defines is called only where the processor has that.

#include "imaging/kernels/box_kernel_loops.h"
#include "imaging/kernels/box_kernels_x86.h"

namespace ruvex {
namespace {
struct Avx2;
}

const BoxKernels& avx2BoxKernels() {
    return detail::kBoxKernels<Avx2>;
}

}  // namespace ruvex
