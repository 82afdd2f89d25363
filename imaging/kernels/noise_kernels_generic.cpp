#include "imaging/kernels/noise_kernels.h"

namespace ruvex {

const NoiseKernels& bestNoiseKernels() {
    return plainNoiseKernels();
}

}  // namespace ruvex
