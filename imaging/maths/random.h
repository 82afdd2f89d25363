// The position hash and the random sequence that all noise is made of. All arithmetic is modulo
// 2^32.

#pragma once

#include <cstdint>

namespace ruvex {

/// A 31-bit hash of a number: a cubic polynomial of the number mixed with itself. The multipliers,
/// the summands and the shift are part of every picture and must not change. Always inline, because
/// sources compiled for one instruction set use it: the linker must not take their copy for all.
[[gnu::always_inline]] constexpr std::uint32_t positionHash(std::uint32_t n) {
    const std::uint32_t m = (n << 13) ^ n;
    return ((m * m * 15731u + 789221u) * m - 771171059u) & 0x7FFFFFFFu;
}

/// The hash as a float. A conversion from a signed integer is one instruction; 31 bits fit.
[[gnu::always_inline]] constexpr float hashAsFloat(std::uint32_t n) {
    return static_cast<float>(static_cast<std::int32_t>(positionHash(n)));
}

/// The next number of a random sequence, 0..32767: two steps of a linear congruential generator,
/// with 8 bits from each. `state` belongs to the caller.
constexpr std::int32_t nextRandom(std::uint32_t& state) {
    const std::uint32_t s1 = state * 1103515245u + 12345u;
    const std::uint32_t s2 = s1 * 1103515245u + 12345u;
    state = s2;
    return static_cast<std::int32_t>((s2 >> 16 & 255u) ^ ((s1 >> 16 & 255u) << 7));
}

/// 1 / 32767 (not 1 / 32768): the factor from nextRandom to 0..1.
inline constexpr float kUniformStep = 3.0518509e-05f;

/// The next number of the sequence as a fraction, 0 to 1 inclusive.
constexpr float uniform(std::uint32_t& state) {
    return static_cast<float>(nextRandom(state)) * kUniformStep;
}

}  // namespace ruvex
