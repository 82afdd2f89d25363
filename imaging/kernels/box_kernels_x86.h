// The versions of the box loops for the x86-64 family.

#pragma once

#include "imaging/kernels/box_kernels.h"

namespace ruvex {

/// For processors with AVX2 alone.
const BoxKernels& avx2BoxKernels();

}  // namespace ruvex
