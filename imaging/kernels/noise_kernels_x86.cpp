#include "imaging/kernels/noise_kernels_x86.h"

namespace ruvex {

const NoiseKernels& bestNoiseKernels() {
    static const NoiseKernels& best =
        __builtin_cpu_supports("avx2") ? avx2NoiseKernels() : plainNoiseKernels();
    return best;
}

}  // namespace ruvex
