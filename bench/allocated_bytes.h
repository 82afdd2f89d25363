// What the process allocates.

#pragma once

#include <cstdint>

namespace ruvex::bench {

/// Bytes asked of operator new so far, in all threads and all libraries of the process.
std::uint64_t allocatedBytes();

}  // namespace ruvex::bench
