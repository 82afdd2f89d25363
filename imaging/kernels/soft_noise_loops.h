// The loop of soft noise, compiled once per instruction set.

#pragma once

#include "imaging/blur/blur_weights.h"
#include "imaging/kernels/soft_noise.h"
#include "imaging/kernels/vector.h"

namespace ruvex::detail {

template <class Processor>
struct SoftNoiseLoops {
    using V = Vector<Processor, kVectorLanes<Processor>>;
    using Ints = typename V::Ints;
    using Words = typename V::Words;

    // One box with 14-bit weights; see Fixed32 in box_kernel_loops.h. 8192 is 0.5, for rounding.
    template <bool Fraction>
    struct Box {
        std::int32_t* oldest;
        std::int64_t span;
        Words box, edge;
        Words sum;

        [[gnu::always_inline]] Box(const BoxChain& chain, int number, int lane,
                                   const BoxWeights& weights)
            : oldest(chain.inputs[number] + lane),
              span(weights.span * kNoiseLanes),
              box(V::all(static_cast<std::uint32_t>(weights.boxWeight))),
              edge(V::all(static_cast<std::uint32_t>(weights.edgeWeight))),
              sum(V::load(chain.sums[number] + lane)) {}

        // Takes the next input and gives an output.
        [[gnu::always_inline]] Ints next(Ints input) {
            V::store(input, oldest + span);
            const auto before = reinterpret_cast<Words>(V::load(oldest));
            const auto after = reinterpret_cast<Words>(input);
            oldest += kNoiseLanes;
            const Words inside = sum - before;
            Words all = sum;
            if constexpr (Fraction) {
                const auto edges = reinterpret_cast<Ints>((before + after) * edge) >> 14;
                all = inside + reinterpret_cast<Words>(edges);
            }
            sum = inside + after;
            return reinterpret_cast<Ints>(all * box + 8192u) >> 14;
        }
    };

    [[gnu::always_inline]] static Words hash(Words number) {
        const Words m = (number << 13) ^ number;
        return ((m * m * 15731u + 789221u) * m - 771171059u) & 0x7FFFFFFFu;
    }

    // The part of the lanes from `lane` on that one vector holds.
    template <bool Fraction>
    static void run(NoiseLanes& noise, std::int64_t count, const BoxWeights& weights,
                    BoxChain& chain, int lane, std::int32_t* to) {
        Box<Fraction> first(chain, 0, lane, weights);
        Box<Fraction> second(chain, 1, lane, weights);
        Box<Fraction> third(chain, 2, lane, weights);
        Words number = V::load(noise.numbers + lane);
        const typename V::Floats factor = V::load(noise.factors + lane);
        for (std::int64_t i = 0; i < count; ++i) {
            const auto bits = reinterpret_cast<Ints>(hash(number));
            const Ints value = V::truncated(V::toFloats(bits) * factor);
            const Ints soft = third.next(second.next(first.next(value)));
            // As a box of radius 0 along Y rounds: the low 18 bits, sign-extended.
            V::store((soft << 14) >> 14, to + i * kNoiseLanes + lane);
            number += noise.step;
        }
        V::store(number, noise.numbers + lane);
        V::store(first.sum, chain.sums[0] + lane);
        V::store(second.sum, chain.sums[1] + lane);
        V::store(third.sum, chain.sums[2] + lane);
    }

    static void soften(NoiseLanes& noise, std::int64_t count, const BoxWeights& weights,
                       BoxChain& chain, std::int32_t* to) {
        for (int lane = 0; lane < kNoiseLanes; lane += kVectorLanes<Processor>) {
            if (weights.fraction) {
                run<true>(noise, count, weights, chain, lane, to);
            } else {
                run<false>(noise, count, weights, chain, lane, to);
            }
        }
        for (std::int32_t*& inputs : chain.inputs) inputs += count * kNoiseLanes;
    }
};

}  // namespace ruvex::detail
