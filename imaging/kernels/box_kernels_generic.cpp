#include "imaging/kernels/box_kernels.h"

namespace ruvex {

const BoxKernels& bestBoxKernels() {
    return plainBoxKernels();
}

}  // namespace ruvex
