#include "imaging/memory_advice.h"

namespace ruvex {

void adviseLargePages(void*, std::size_t) noexcept {}

}  // namespace ruvex
