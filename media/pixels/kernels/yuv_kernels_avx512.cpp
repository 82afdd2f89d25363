// Compiled for 512-bit vectors: the code in this file may run only on processors that have them.

#include "media/pixels/kernels/yuv_kernel_table.h"

namespace ruvex::media {
namespace {
struct Avx512;
}

const YuvKernels& avx512YuvKernels() {
    return detail::kYuvKernels<Avx512>;
}

}  // namespace ruvex::media
