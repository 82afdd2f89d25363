#include <cstdint>
#include <sys/mman.h>

#include "imaging/memory_advice.h"

namespace ruvex {
namespace {
// The size of a large page on the usual processors. Advice is given for whole ones only: the ends
// belong to the heap's neighbours.
constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;
}  // namespace

void adviseLargePages(void* memory, std::size_t bytes) noexcept {
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (address + kLargePage - 1) / kLargePage * kLargePage;
    const std::uintptr_t end = (address + bytes) / kLargePage * kLargePage;
    if (first >= end) return;
    // Advice that is refused changes nothing.
    static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
}

}  // namespace ruvex
