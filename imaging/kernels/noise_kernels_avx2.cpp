// Compiled with -mavx2; what it defines is called only where the processor has that.

#include "imaging/kernels/noise_kernel_loops.h"
#include "imaging/kernels/noise_kernels_x86.h"

namespace ruvex {
namespace {
struct Avx2;
}

const NoiseKernels& avx2NoiseKernels() {
    return detail::kNoiseKernels<Avx2>;
}

}  // namespace ruvex
