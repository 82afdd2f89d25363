// Compiled with -mavx2: the code in this file may run only on processors with AVX2.

#include "imaging/kernels/box_kernel_loops.h"

namespace ruvex {
namespace {
struct Avx2;
}

const BoxKernels& avx2BoxKernels() {
    return detail::kBoxKernels<Avx2>;
}

}  // namespace ruvex
