#include "imaging/kernels/noise_kernels.h"

#include "imaging/kernels/dispatch.h"
#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const NoiseKernels& plainNoiseKernels() {
    return detail::kNoiseKernels<AnyProcessor>;
}

const NoiseKernels& bestNoiseKernels() {
    static const NoiseKernels& best = fastestVersion<plainNoiseKernels, avx2NoiseKernels>();
    return best;
}

}  // namespace ruvex
