// One pass of a separable blur: one thread's share of the rows, or of the columns.

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

/// The result of a fixed-point box of radius 0 for a component: value * 1.0 in 14-bit fixed point,
/// rounded. The 32-bit product wraps, so only the low 18 bits of `value` remain, sign-extended.
constexpr std::int32_t foldedInteger(std::int32_t value) {
    constexpr int kFractionBits = 14;
    constexpr std::uint32_t kOne = 1u << kFractionBits;
    constexpr std::uint32_t kHalf = kOne / 2;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) * kOne + kHalf) >>
           kFractionBits;
}

/// Blurs rows `lines` (image space) of `from` along X into the same rows of `to`, which must have
/// these rows and the columns that `plan` writes. Checks for interruption between blocks of rows.
/// When out of memory, raises that on `interrupt` and returns.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurRows(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
              const LineRange& lines, InterruptionRecord* interrupt);

/// The same for columns `lines` along Y.
template <class P, std::uint32_t Mask, BlurArithmetic Arithmetic>
void blurColumns(const VxTexture<P>& from, VxTexture<P>& to, const BoxPlan& plan,
                 const LineRange& lines, InterruptionRecord* interrupt);

}  // namespace ruvex
