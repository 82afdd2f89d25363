// Contrast, brightness and tint as lookup tables.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/pixel.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// A symmetric curve about 0.5 for x from 0 up; `contrast` 0 is the identity, 0.5 and above a hard
/// step. For contrast of 0 and above, values above 1 pass unchanged. Never below 0.
float contrastCurve(float x, float contrast);

/// Each table is worked out once a frame, value by value, and not pixel by pixel. Which tables
/// exist follows the type of television; the others are null.
template <class P>
struct ToneTables {
    /// Entries of a table: every value from 0 to the largest that a stage keeps.
    static constexpr std::int32_t kEntries = static_cast<std::int32_t>(PixelTraits<P>::kTop) + 1;

    std::unique_ptr<std::int32_t[]> lutMono;
    std::unique_ptr<std::int32_t[]> lutRed;
    std::unique_ptr<std::int32_t[]> lutGreen;
    std::unique_ptr<std::int32_t[]> lutBlue;
    std::unique_ptr<P[]> tintTable;
    bool identity = false;  ///< the three of the guns leave every value as it is

    /// False when memory ran out.
    bool build(const SignalParameters& signal);
    void clear();
};

extern template struct ToneTables<Rgba8>;
extern template struct ToneTables<RgbaS214>;

}  // namespace ruvex
