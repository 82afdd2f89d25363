// Angles in radians, in single precision.

#pragma once

namespace ruvex {

inline constexpr float kQuarterTurn = 1.5707964f;
inline constexpr float kHalfTurn = 3.1415927f;
inline constexpr float kThreeQuarterTurn = 4.712389f;
inline constexpr float kWholeTurn = 6.2831855f;

}  // namespace ruvex
