#include "media/pixels/kernels/yuv_kernels.h"

#include "media/pixels/kernels/yuv_kernel_table.h"

namespace ruvex::media {
namespace {
struct AnyProcessor;
}

const YuvKernels& plainYuvKernels() {
    return detail::kYuvKernels<AnyProcessor>;
}

const KernelVersions<YuvKernels>& yuvKernelVersions() {
    static const KernelVersions versions =
        supportedVersions<plainYuvKernels, avx2YuvKernels, avx512YuvKernels>();
    return versions;
}

const YuvKernels& bestYuvKernels() {
    static const YuvKernels& best = yuvKernelVersions().fastest();
    return best;
}

}  // namespace ruvex::media
