// Which part of a program allocates memory and copies it: the functions of the C library that do so
// are replaced by ones that count. For glibc, and not beside a sanitizer, which replaces them too.

#pragma once

#include <cstdint>

namespace ruvex::test {

/// Bytes by who asked for them: the address that a call returns to tells.
struct ByOwner {
    std::uint64_t program = 0;    ///< The test program: the host, its readers, writers, pipelines.
    std::uint64_t module = 0;     ///< The effect's module.
    std::uint64_t libraries = 0;  ///< All other libraries: the codecs and their helpers.

    ByOwner operator-(const ByOwner& before) const {
        return {program - before.program, module - before.module, libraries - before.libraries};
    }
};

/// From now on calls are told apart by the libraries that are loaded now.
void learnOwners();

/// Bytes that were allocated so far, in all threads, by `malloc` and its kind and by `new`. What is
/// freed again counts too.
ByOwner allocatedBytesByOwner();

/// Bytes that are allocated now, by the whole process.
std::int64_t bytesInUse();

/// Bytes that were copied so far, in all threads, by calls of `memcpy` and `memmove` of a
/// kilobyte or more. Compilers make such calls of assignments and loops that only copy.
ByOwner copiedBytesByOwner();

}  // namespace ruvex::test
