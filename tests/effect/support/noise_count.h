// Counting how often the fractal noise is asked for.

#pragma once

#include <cstdint>

namespace ruvex::test {

/// Calls of VxGradientNoise::fractalNoise from other sources since this thread began. Needs the
/// linker's help: a program that counts is linked with ruvex_noise_count, which puts a counting
/// wrapper between the callers and the function; the product knows nothing of it.
std::uint64_t fractalNoiseCalls();

}  // namespace ruvex::test
