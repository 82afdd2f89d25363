// The bodies of the box loops, to be compiled once for each kind of processor. Everything depends
// on a tag of the including source, which keeps code for one processor out of the others' way.

#pragma once

#include "imaging/box_kernels.h"

namespace ruvex::detail {

/// Integer sums with 14-bit weights. Products and sums wrap, hence unsigned.
struct Fixed32 {
    using Sum = std::uint32_t;
    std::uint32_t box, edge;

    explicit Fixed32(const BoxWeights& weights)
        : box(static_cast<std::uint32_t>(weights.boxWeight)),
          edge(static_cast<std::uint32_t>(weights.edgeWeight)) {}

    std::int32_t scale(Sum sum) const { return static_cast<std::int32_t>(sum * box + 8192u) >> 14; }
    Sum edges(Sum before, Sum after) const {
        return static_cast<Sum>(static_cast<std::int32_t>((before + after) * edge) >> 14);
    }
    template <class T>
    static Sum widen(T value) {
        return static_cast<Sum>(value);
    }
};

/// The same for bytes whose sums fit 16 bits. With the weights times 4 the shift by 14 becomes one
/// by 16, which is the upper half of a 16-bit product.
struct Fixed16 {
    using Sum = std::uint16_t;
    std::uint16_t box, edge;

    explicit Fixed16(const BoxWeights& weights)
        : box(static_cast<std::uint16_t>(weights.boxWeight * 4)),
          edge(static_cast<std::uint16_t>(weights.edgeWeight * 4)) {}

    static bool holds(const BoxWeights& weights) {
        return 255 * (2 * weights.radius + 3) <= 65535 && weights.boxWeight * 4 <= 65535;
    }
    std::uint16_t scale(Sum sum) const {
        // Half a unit is added before the shift: it carries where the lower half's top bit is set.
        const auto low = static_cast<std::uint16_t>(sum * box);
        return static_cast<std::uint16_t>(high(sum, box) + (low >> 15));
    }
    Sum edges(Sum before, Sum after) const {
        return high(static_cast<std::uint16_t>(before + after), edge);
    }
    static Sum widen(std::uint8_t value) { return value; }

private:
    static std::uint16_t high(std::uint16_t a, std::uint16_t b) {
        return static_cast<std::uint16_t>((static_cast<std::uint32_t>(a) * b) >> 16);
    }
};

/// Float sums. Where they grow beyond 24 bits they depend on the order of the steps, which is
/// therefore the same everywhere: S' = S - before, and S = S' + after.
struct Floating {
    using Sum = float;
    float box, edge;

    explicit Floating(const BoxWeights& weights)
        : box(weights.boxFactor), edge(weights.edgeFactor) {}

    std::int32_t scale(Sum sum) const { return static_cast<std::int32_t>(sum * box); }
    Sum edges(Sum before, Sum after) const { return (before + after) * edge; }
    template <class T>
    static Sum widen(T value) {
        return static_cast<Sum>(value);
    }
};

template <class Processor, class Arithmetic, class T>
void step(T* __restrict oldest, const T* __restrict newest,
          typename Arithmetic::Sum* __restrict sums, const Arithmetic& arithmetic) {
    using Sum = typename Arithmetic::Sum;
    for (std::int64_t i = 0; i < kLanes<T>; ++i) {
        const Sum sum = sums[i];
        const Sum change =
            static_cast<Sum>(arithmetic.widen(newest[i]) - arithmetic.widen(oldest[i]));
        oldest[i] = static_cast<T>(arithmetic.scale(sum));
        sums[i] = static_cast<Sum>(sum + change);
    }
}

template <class Processor, class Arithmetic, class T>
void stepFraction(T* __restrict oldest, const T* __restrict newest,
                  typename Arithmetic::Sum* __restrict sums, const Arithmetic& arithmetic) {
    using Sum = typename Arithmetic::Sum;
    for (std::int64_t i = 0; i < kLanes<T>; ++i) {
        const Sum before = arithmetic.widen(oldest[i]);
        const Sum after = arithmetic.widen(newest[i]);
        const Sum inside = static_cast<Sum>(sums[i] - before);
        // Whole pixels first, so that the float form rounds in one order.
        const Sum all = static_cast<Sum>(inside + arithmetic.edges(before, after));
        oldest[i] = static_cast<T>(arithmetic.scale(all));
        sums[i] = static_cast<Sum>(inside + after);
    }
}

template <class Processor, class Arithmetic, class T>
void filterBox(T* block, std::int64_t count, const BoxWeights& weights) {
    using Sum = typename Arithmetic::Sum;
    constexpr std::int64_t kStep = kLanes<T>;
    const Arithmetic arithmetic(weights);
    const std::int64_t span = weights.span();
    alignas(kLaneBytes) Sum sums[kStep] = {};
    for (std::int64_t p = 0; p < span; ++p) {
        for (std::int64_t i = 0; i < kStep; ++i) {
            sums[i] = static_cast<Sum>(sums[i] + arithmetic.widen(block[p * kStep + i]));
        }
    }
    if (weights.fraction) {
        for (T* end = block + count * kStep; block < end; block += kStep) {
            stepFraction<Processor>(block, block + span * kStep, sums, arithmetic);
        }
    } else {
        for (T* end = block + count * kStep; block < end; block += kStep) {
            step<Processor>(block, block + span * kStep, sums, arithmetic);
        }
    }
}

template <class Processor>
void filterBytes(std::uint8_t* block, std::int64_t count, const BoxWeights& weights) {
    if (Fixed16::holds(weights)) {
        filterBox<Processor, Fixed16>(block, count, weights);
    } else {
        filterBox<Processor, Fixed32>(block, count, weights);
    }
}

template <class Processor>
constexpr BoxKernels boxKernels() {
    return {filterBytes<Processor>, filterBox<Processor, Fixed32, std::int16_t>,
            filterBox<Processor, Fixed32, std::int32_t>,
            filterBox<Processor, Floating, std::uint8_t>,
            filterBox<Processor, Floating, std::int16_t>};
}

}  // namespace ruvex::detail
