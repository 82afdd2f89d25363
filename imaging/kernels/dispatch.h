// Choice of the version of a kernel table that this machine's processor supports.

#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace ruvex {

/// The versions of a kernel table that this machine's processor supports, from the plain one to the
/// fastest.
template <class Table>
class KernelVersions {
public:
    explicit KernelVersions(const Table& plain) { add(plain); }
    void add(const Table& faster) { tables_[count_++] = &faster; }

    std::span<const Table* const> all() const { return {tables_.data(), count_}; }
    const Table& fastest() const { return *tables_[count_ - 1]; }

private:
    std::array<const Table*, 3> tables_{};
    std::size_t count_ = 0;
};

/// Each argument is a function that returns a reference to a version: `kPlain` for any processor,
/// `kAvx2` for x86-64 processors with AVX2, `kAvx512` for those with 512-bit vectors of all kinds
/// of integers and floats. In builds for other architectures the last two are not defined.
template <auto kPlain, auto kAvx2, auto kAvx512>
auto supportedVersions() {
    KernelVersions versions(kPlain());
#if defined(__x86_64__)
    // These ask the operating system too, which has to save the wide registers.
    if (__builtin_cpu_supports("avx2")) versions.add(kAvx2());
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl")) {
        versions.add(kAvx512());
    }
#endif
    return versions;
}

}  // namespace ruvex
