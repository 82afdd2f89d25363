#include "imaging/kernels/box_kernels.h"

#include "imaging/kernels/box_kernel_loops.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const BoxKernels& plainBoxKernels() {
    return detail::kBoxKernels<AnyProcessor>;
}

const KernelVersions<BoxKernels>& boxKernelVersions() {
    static const KernelVersions versions =
        supportedVersions<plainBoxKernels, avx2BoxKernels, avx512BoxKernels>();
    return versions;
}

const BoxKernels& bestBoxKernels() {
    static const BoxKernels& best = boxKernelVersions().fastest();
    return best;
}

}  // namespace ruvex
