// Compiled with -mavx2: the code in this file may run only on processors with AVX2.

#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx2;
}

const NoiseKernels& avx2NoiseKernels() {
    return detail::kNoiseKernels<Avx2>;
}

}  // namespace ruvex
