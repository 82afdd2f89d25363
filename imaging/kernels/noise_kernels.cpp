#include "imaging/kernels/noise_kernels.h"

#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const NoiseKernels& plainNoiseKernels() {
    return detail::kNoiseKernels<AnyProcessor>;
}

const KernelVersions<NoiseKernels>& noiseKernelVersions() {
    static const KernelVersions versions =
        supportedVersions<plainNoiseKernels, avx2NoiseKernels, avx512NoiseKernels>();
    return versions;
}

const NoiseKernels& bestNoiseKernels() {
    static const NoiseKernels& best = noiseKernelVersions().fastest();
    return best;
}

}  // namespace ruvex
