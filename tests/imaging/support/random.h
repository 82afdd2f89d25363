// Repeatable random choices for tests: the same seed gives the same case on every machine.

#pragma once

#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>

namespace ruvex::test {

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    std::uint32_t bits() { return static_cast<std::uint32_t>(engine_()); }

    /// A whole number from `low` to `high`, both included.
    std::int32_t whole(std::int32_t low, std::int32_t high) {
        const std::uint64_t span = static_cast<std::uint64_t>(std::int64_t{high} - low) + 1;
        return static_cast<std::int32_t>(low + static_cast<std::int64_t>(bits() % span));
    }

    /// True in `percent` of a hundred calls.
    bool chance(std::int32_t percent) { return whole(0, 99) < percent; }

    /// A float from `low` to `high` with 24 random bits.
    float real(float low, float high) {
        return low + (high - low) * (static_cast<float>(bits() >> 8) / 16777216.0f);
    }

    template <class Table>
    auto oneOf(const Table& table) {
        return table[bits() % std::size(table)];
    }

    /// A component of any value that the storage has; floats stay in the range of S2.14.
    template <class T>
    T component() {
        if constexpr (std::is_floating_point_v<T>) {
            return real(-32768.0f, 32767.0f);
        } else {
            return static_cast<T>(bits());
        }
    }

private:
    std::mt19937 engine_;
};

/// How many cases of a property to run: the sanitizers are slow.
constexpr int cases(int plain) {
#ifdef RUVEX_SANITIZED
    return plain / 4 + 1;
#else
    return plain;
#endif
}

}  // namespace ruvex::test
