// White, as tests count it.

#pragma once

namespace ruvex::test {

/// White as a component of a stored pixel.
template <class P>
constexpr int kWhiteOf = sizeof(P) == 4 ? 255 : 16384;

}  // namespace ruvex::test
