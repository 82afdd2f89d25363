#include "imaging/kernels/box_kernel_loops.h"

namespace ruvex {
namespace {
struct AnyProcessor;
}

const BoxKernels& plainBoxKernels() {
    return detail::kBoxKernels<AnyProcessor>;
}

}  // namespace ruvex
