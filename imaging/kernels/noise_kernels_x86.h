// The versions of the noise loops for the x86-64 family.

#pragma once

#include "imaging/kernels/noise_kernels.h"

namespace ruvex {

/// For processors with AVX2 alone.
const NoiseKernels& avx2NoiseKernels();

}  // namespace ruvex
