#include "media/pixels/kernels/yuv_kernels.h"

#include "imaging/kernels/dispatch.h"
#include "media/pixels/kernels/yuv_kernel_table.h"

namespace ruvex::media {
namespace {
struct AnyProcessor;
}

const YuvKernels& plainYuvKernels() {
    return detail::kYuvKernels<AnyProcessor>;
}

const YuvKernels& bestYuvKernels() {
    static const YuvKernels& best = fastestVersion<plainYuvKernels, avx2YuvKernels>();
    return best;
}

}  // namespace ruvex::media
