// What the system's memory manager can be told about a buffer.

#pragma once

#include <cstddef>

namespace ruvex {

/// Asks for large pages behind `bytes` bytes at `memory`, which is about to be filled. A frame of
/// ordinary pages costs thousands of page faults, and a walk down its columns misses the
/// processor's page table cache at every row. Does nothing where the system can't.
void adviseLargePages(void* memory, std::size_t bytes) noexcept;

}  // namespace ruvex
