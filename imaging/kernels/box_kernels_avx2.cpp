// Compiled with -mavx2. What it defines runs on processors with AVX2 alone.

#include "imaging/kernels/box_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx2;
}

const BoxKernels& avx2BoxKernels() {
    return detail::kBoxKernels<Avx2>;
}

}  // namespace ruvex
