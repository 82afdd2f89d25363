#include "imaging/kernels/box_kernels.h"

#include "imaging/kernels/box_kernel_loops.h"
#include "imaging/kernels/dispatch.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const BoxKernels& plainBoxKernels() {
    return detail::kBoxKernels<AnyProcessor>;
}

const BoxKernels& bestBoxKernels() {
    static const BoxKernels& best = fastestVersion<plainBoxKernels, avx2BoxKernels>();
    return best;
}

}  // namespace ruvex
