// Compiled for 512-bit vectors: the code in this file may run only on processors that have them.

#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx512;
}

const NoiseKernels& avx512NoiseKernels() {
    return detail::kNoiseKernels<Avx512>;
}

}  // namespace ruvex
