// The loops that sum lines and interpolate chroma, compiled once per instruction set. Each source
// uses its own tag type, so that the linker can't merge the versions.

#pragma once

#include <cstdint>

namespace ruvex::media::detail {

template <class From, class Sum, class Processor>
struct SumLoop {
    static void run(const From* const* lines, const std::int32_t* weights, int taps,
                    std::int32_t start, Sum* sums, int count) {
        const int fours = taps / kFour * kFour;
        for (int tap = 0; tap < fours; tap += kFour) {
            if (tap == 0) {
                sumFour<true>(lines, weights, start, sums, count);
            } else {
                sumFour<false>(lines + tap, weights + tap, 0, sums, count);
            }
        }
        for (int tap = fours; tap < taps; ++tap) {
            if (tap == 0) {
                sumOne<true>(lines[0], weights[0], start, sums, count);
            } else {
                sumOne<false>(lines[tap], weights[tap], 0, sums, count);
            }
        }
    }

private:
    /// Lines that are added at a time.
    static constexpr int kFour = 4;

    template <bool First>
    static void sumOne(const From* line, Sum weight, Sum start, Sum* sums, int count) {
#pragma GCC ivdep
        for (int i = 0; i < count; ++i) {
            sums[i] = (First ? start : sums[i]) + weight * static_cast<Sum>(line[i]);
        }
    }

    template <bool First>
    static void sumFour(const From* const* lines, const std::int32_t* weights, Sum start, Sum* sums,
                        int count) {
        const From* const a = lines[0];
        const From* const b = lines[1];
        const From* const c = lines[2];
        const From* const d = lines[3];
        const Sum atA = weights[0];
        const Sum atB = weights[1];
        const Sum atC = weights[2];
        const Sum atD = weights[3];
#pragma GCC ivdep
        for (int i = 0; i < count; ++i) {
            const Sum before = First ? start : sums[i];
            sums[i] = before + atA * static_cast<Sum>(a[i]) + atB * static_cast<Sum>(b[i]) +
                      atC * static_cast<Sum>(c[i]) + atD * static_cast<Sum>(d[i]);
        }
    }
};

template <class Sum, class Processor>
struct InterpolateLoop {
    static void run(const Sum* inputs, const int first[2], const std::int32_t* weights,
                    Sum* outputs, int count) {
        const Sum* const even = inputs + first[0];
        const Sum* const odd = inputs + first[1];
        const Sum evenAt[4] = {Sum(weights[0]), Sum(weights[1]), Sum(weights[2]), Sum(weights[3])};
        const Sum oddAt[4] = {Sum(weights[4]), Sum(weights[5]), Sum(weights[6]), Sum(weights[7])};
        const int pairs = count / 2;
#pragma GCC ivdep
        for (int i = 0; i < pairs; ++i) {
            outputs[2 * i] = weighted(even + i, evenAt);
            outputs[2 * i + 1] = weighted(odd + i, oddAt);
        }
        if (count % 2 != 0) {
            outputs[count - 1] = weighted(even + pairs, evenAt);
        }
    }

private:
    [[gnu::always_inline]] static Sum weighted(const Sum* inputs, const Sum at[4]) {
        return at[0] * inputs[0] + at[1] * inputs[1] + at[2] * inputs[2] + at[3] * inputs[3];
    }
};

}  // namespace ruvex::media::detail
