// The bodies of the box loops, compiled once per instruction set. Everything here is a template
// over a tag type local to the including source: the linker can't merge the versions, and so code
// for AVX2 can't end up in the plain version.

#pragma once

#include "imaging/kernels/box_kernels.h"

namespace ruvex::detail {

/// Integer sums with 14-bit weights. Sums and products may wrap, so they are unsigned. 8192 is 0.5
/// in 14-bit fixed point, for rounding.
template <class Processor>
struct Fixed32 {
    using Sum = std::uint32_t;
    Sum box, edge;

    explicit Fixed32(const BoxWeights& weights)
        : box(static_cast<Sum>(weights.boxWeight)), edge(static_cast<Sum>(weights.edgeWeight)) {}

    std::int32_t scale(Sum sum) const { return static_cast<std::int32_t>(sum * box + 8192u) >> 14; }
    Sum edges(Sum before, Sum after) const {
        return static_cast<Sum>(static_cast<std::int32_t>((before + after) * edge) >> 14);
    }
};

/// The same for bytes whose sums fit 16 bits. The weights are multiplied by 4, so that the shift by
/// 14 becomes one by 16: the upper half of a 16-bit by 16-bit product.
template <class Processor>
struct Fixed16 {
    using Sum = std::uint16_t;
    Sum box, edge;

    explicit Fixed16(const BoxWeights& weights)
        : box(static_cast<Sum>(weights.boxWeight * 4)),
          edge(static_cast<Sum>(weights.edgeWeight * 4)) {}

    static bool holds(const BoxWeights& weights) {
        return 255 * (2 * weights.radius + 3) <= 65535 && weights.boxWeight * 4 <= 65535;
    }
    Sum scale(Sum sum) const {
        // Rounding adds half: it carries into the upper half if the lower half's top bit is set.
        const auto low = static_cast<Sum>(std::uint32_t{sum} * box);
        return static_cast<Sum>(high(sum, box) + (low >> 15));
    }
    Sum edges(Sum before, Sum after) const { return high(static_cast<Sum>(before + after), edge); }

private:
    static Sum high(Sum a, Sum b) { return static_cast<Sum>(std::uint32_t{a} * b >> 16); }
};

/// Float sums. Sums above 24 bits are rounded, so the order of the additions decides the result and
/// must not change: S + (after - before); with a fractional radius S' = S - before, then S' +
/// after.
template <class Processor>
struct Floating {
    using Sum = float;
    Sum box, edge;

    explicit Floating(const BoxWeights& weights)
        : box(weights.boxFactor), edge(weights.edgeFactor) {}

    std::int32_t scale(Sum sum) const { return static_cast<std::int32_t>(sum * box); }
    Sum edges(Sum before, Sum after) const { return (before + after) * edge; }
};

template <class Arithmetic, class T>
void step(T* __restrict oldest, const T* __restrict newest,
          typename Arithmetic::Sum* __restrict sums, const Arithmetic& arithmetic) {
    using Sum = typename Arithmetic::Sum;
#pragma GCC unroll 1  // a loop that is unrolled whole before it is widened stays narrow
    for (std::int64_t i = 0; i < kLanes<T>; ++i) {
        const Sum sum = sums[i];
        const auto before = static_cast<Sum>(oldest[i]);
        const auto after = static_cast<Sum>(newest[i]);
        oldest[i] = static_cast<T>(arithmetic.scale(sum));
        sums[i] = static_cast<Sum>(sum + static_cast<Sum>(after - before));
    }
}

template <class Arithmetic, class T>
void stepFraction(T* __restrict oldest, const T* __restrict newest,
                  typename Arithmetic::Sum* __restrict sums, const Arithmetic& arithmetic) {
    using Sum = typename Arithmetic::Sum;
#pragma GCC unroll 1  // a loop that is unrolled whole before it is widened stays narrow
    for (std::int64_t i = 0; i < kLanes<T>; ++i) {
        const auto before = static_cast<Sum>(oldest[i]);
        const auto after = static_cast<Sum>(newest[i]);
        const auto inside = static_cast<Sum>(sums[i] - before);
        const auto all = static_cast<Sum>(inside + arithmetic.edges(before, after));
        oldest[i] = static_cast<T>(arithmetic.scale(all));
        sums[i] = static_cast<Sum>(inside + after);
    }
}

template <class Arithmetic, class T>
void filterBox(T* block, std::int64_t count, const BoxWeights& weights) {
    using Sum = typename Arithmetic::Sum;
    constexpr std::int64_t kStep = kLanes<T>;
    const Arithmetic arithmetic(weights);
    alignas(kLaneBytes) Sum sums[kStep] = {};
    for (const T* p = block; p < block + weights.span * kStep; p += kStep) {
        for (std::int64_t i = 0; i < kStep; ++i) {
            sums[i] = static_cast<Sum>(sums[i] + static_cast<Sum>(p[i]));
        }
    }
    const T* newest = block + weights.span * kStep;
    for (T* end = block + count * kStep; block < end; block += kStep, newest += kStep) {
        if (weights.fraction) {
            stepFraction(block, newest, sums, arithmetic);
        } else {
            step(block, newest, sums, arithmetic);
        }
    }
}

template <class Processor>
void filterBytes(std::uint8_t* block, std::int64_t count, const BoxWeights& weights) {
    if (Fixed16<Processor>::holds(weights)) {
        filterBox<Fixed16<Processor>>(block, count, weights);
    } else {
        filterBox<Fixed32<Processor>>(block, count, weights);
    }
}

template <class Processor>
inline constexpr BoxKernels kBoxKernels{
    filterBytes<Processor>, filterBox<Fixed32<Processor>, std::int16_t>,
    filterBox<Fixed32<Processor>, std::int32_t>, filterBox<Floating<Processor>, std::uint8_t>,
    filterBox<Floating<Processor>, std::int16_t>};

}  // namespace ruvex::detail
