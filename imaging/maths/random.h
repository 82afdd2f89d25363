// The two hashes that all randomness comes from. Everything is modulo 2 to the 32.

#pragma once

#include <cstdint>

namespace ruvex {

/// A 31-bit value for a position. The constant that is subtracted belongs to this system: another
/// would make other pictures. Always inline: sources for one processor alone use it, and no copy of
/// theirs may be taken for all.
[[gnu::always_inline]] constexpr std::uint32_t positionHash(std::uint32_t n) {
    const std::uint32_t m = (n << 13) ^ n;
    return ((m * m * 15731u + 789221u) * m - 771171059u) & 0x7FFFFFFFu;
}

/// The same as a float. Hashes have 31 bits: by way of the signed type they are converted by a
/// single instruction.
[[gnu::always_inline]] constexpr float hashAsFloat(std::uint32_t n) {
    return static_cast<float>(static_cast<std::int32_t>(positionHash(n)));
}

/// The next of a sequence, 0..32767. `state` is one word, kept by the caller; two steps of its
/// recurrence are spent.
constexpr std::int32_t nextRandom(std::uint32_t& state) {
    const std::uint32_t s1 = state * 1103515245u + 12345u;
    const std::uint32_t s2 = s1 * 1103515245u + 12345u;
    state = s2;
    return static_cast<std::int32_t>((s2 >> 16 & 255u) ^ ((s1 >> 16 & 255u) << 7));
}

/// What nextRandom is multiplied by for a fraction: 1 / 32767, not 1 / 32768.
inline constexpr float kUniformStep = 3.0518509e-05f;

/// The next of a sequence as a fraction, 0 to 1.
constexpr float uniform(std::uint32_t& state) {
    return static_cast<float>(nextRandom(state)) * kUniformStep;
}

}  // namespace ruvex
