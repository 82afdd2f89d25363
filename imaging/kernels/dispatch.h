// Which version of a table of loops this machine runs.

#pragma once

namespace ruvex {

/// The fastest version of a table that this machine runs. Each argument is a function that returns
/// a reference to a version: `kPlain` for any processor, `kAvx2` for x86-64 processors with AVX2.
/// Builds for other kinds of processor have no source that defines `kAvx2`.
template <auto kPlain, auto kAvx2>
auto fastestVersion() -> decltype(kPlain()) {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) return kAvx2();
#endif
    return kPlain();
}

}  // namespace ruvex
