#include "imaging/kernels/box_kernels_x86.h"

namespace ruvex {

const BoxKernels& bestBoxKernels() {
    static const BoxKernels& best =
        __builtin_cpu_supports("avx2") ? avx2BoxKernels() : plainBoxKernels();
    return best;
}

}  // namespace ruvex
