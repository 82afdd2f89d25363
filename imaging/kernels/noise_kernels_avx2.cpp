// Compiled with -mavx2. What it defines runs on processors with AVX2 alone.

#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx2;
}

const NoiseKernels& avx2NoiseKernels() {
    return detail::kNoiseKernels<Avx2>;
}

}  // namespace ruvex
