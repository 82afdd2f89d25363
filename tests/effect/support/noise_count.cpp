#include "tests/effect/support/noise_count.h"

#include "imaging/noise/gradient_noise.h"

namespace {
thread_local std::uint64_t calls = 0;
}

// The linker sends every call to __wrap_ and knows the function itself as __real_.
extern "C" float __real__ZNK5ruvex15VxGradientNoise12fractalNoiseEfi(
    const ruvex::VxGradientNoise* noise, float x, std::int32_t octaves);
extern "C" float __wrap__ZNK5ruvex15VxGradientNoise12fractalNoiseEfi(
    const ruvex::VxGradientNoise* noise, float x, std::int32_t octaves) {
    ++calls;
    return __real__ZNK5ruvex15VxGradientNoise12fractalNoiseEfi(noise, x, octaves);
}

namespace ruvex::test {

std::uint64_t fractalNoiseCalls() {
    return calls;
}

}  // namespace ruvex::test
