// Compiled for 512-bit vectors: the code in this file may run only on processors that have them.

#include "imaging/kernels/box_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx512;
}

const BoxKernels& avx512BoxKernels() {
    return detail::kBoxKernels<Avx512>;
}

}  // namespace ruvex
