#include <algorithm>
#include <cmath>

#include "imaging/kernels/noise_kernels.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/maths_sine.h"

namespace ruvex::maths {

void sines(const float* angles, std::int32_t count, float* to) {
    const bool near = std::all_of(angles, angles + count, [](float angle) {
        return std::fabs(angle) <= static_cast<float>(detail::kExactReduction);
    });
    if (near) return bestNoiseKernels().sines(angles, count, to);
    for (std::int32_t i = 0; i < count; ++i) to[i] = static_cast<float>(sin(angles[i]));
}

}  // namespace ruvex::maths
