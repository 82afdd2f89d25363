// What pictures ask of the arithmetic of a build: the same result on every processor.

#pragma once

#include <cfloat>
#include <limits>

namespace ruvex {

static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
              "pictures are defined in IEEE 754 arithmetic");
// The x87 processor keeps more digits than the type has, until a value goes to memory.
static_assert(FLT_EVAL_METHOD == 0,
              "each operation has to be rounded to its type; on x86 compile with -mfpmath=sse");
#ifdef __FAST_MATH__
#error "fast-math changes pictures"
#endif

}  // namespace ruvex
