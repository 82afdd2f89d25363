// One pass of a separable blur: all rows, or all columns, of a thread's share.

#pragma once

#include <cstdint>

#include "imaging/box_plan.h"
#include "imaging/interruption.h"
#include "imaging/texture.h"

namespace ruvex {

enum class BlurArithmetic {
    Fixed,     ///< 14-bit weights, integer sums
    Floating,  ///< float weights and sums
};

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
