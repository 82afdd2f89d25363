// The S-curve of contrast.

#pragma once

namespace ruvex {

/// A symmetric curve about 0.5 for x from 0 up; `contrast` 0 is the identity, 0.5 and above a hard
/// step. For contrast of 0 and above, values above 1 pass unchanged. Never below 0.
float contrastCurve(float x, float contrast);

}  // namespace ruvex
