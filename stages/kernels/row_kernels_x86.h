// The versions of the television's loops for the x86-64 family.

#pragma once

#include "stages/kernels/row_kernels.h"

namespace ruvex {

/// For processors with AVX2 alone.
template <class P>
const RowKernels<P>& avx2RowKernels();

}  // namespace ruvex
