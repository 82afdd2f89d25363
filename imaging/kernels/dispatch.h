// Choice of the version of a kernel table that this machine's processor supports.

#pragma once

namespace ruvex {

/// The fastest version of a kernel table that this machine's processor supports. Each argument is a
/// function that returns a reference to a version: `kPlain` for any processor, `kAvx2` for x86-64
/// processors with AVX2. In builds for other architectures `kAvx2` is not defined.
template <auto kPlain, auto kAvx2>
auto fastestVersion() -> decltype(kPlain()) {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) return kAvx2();
#endif
    return kPlain();
}

}  // namespace ruvex
