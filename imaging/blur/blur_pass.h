// One pass of a separable blur: all rows, or all columns, of a thread's share.

#pragma once

#include <cstdint>

#include "imaging/blur/box_plan.h"
#include "imaging/interruption.h"
#include "imaging/texture.h"

namespace ruvex {

enum class BlurArithmetic {
    Fixed,     ///< 14-bit weights, integer sums
    Floating,  ///< float weights and sums
};

/// What boxes of radius 0 make of an integer: weight 1 in 14-bit fixed point, with a product that
/// wraps, keeps its low 18 bits and their sign.
constexpr std::int32_t foldedInteger(std::int32_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) * 16384u + 8192u) >> 14;
}

/// Blurs rows `lines` of `from` along X into the same rows of `to`, image space. `to` has the rows,
/// and the columns that the plan writes. Stops between blocks of rows when interrupted; without
/// memory it stops the render.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurRows(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
              const LineRange& lines, InterruptionRecord* interrupt);

/// The same for columns along Y.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurColumns(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
                 const LineRange& lines, InterruptionRecord* interrupt);

}  // namespace ruvex
