// Compiled with -mavx2: the code in this file may run only on processors with AVX2.

#include "media/pixels/kernels/yuv_kernel_table.h"

namespace ruvex::media {
namespace {
struct Avx2;
}

const YuvKernels& avx2YuvKernels() {
    return detail::kYuvKernels<Avx2>;
}

}  // namespace ruvex::media
