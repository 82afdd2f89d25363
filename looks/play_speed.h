// The speed at which a clip plays as it is.

#pragma once

namespace ruvex::looks {

/// Of Play Speed, in percent.
inline constexpr double kNormalPlaySpeed = 100.0;

}  // namespace ruvex::looks
