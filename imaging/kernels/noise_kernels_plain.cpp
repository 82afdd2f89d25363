#include "imaging/kernels/noise_kernel_loops.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const NoiseKernels& plainNoiseKernels() {
    return detail::kNoiseKernels<AnyProcessor>;
}

}  // namespace ruvex
