// Contrast, brightness and tint as lookup tables.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/img_proc.h"
#include "imaging/pixel.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// A contrast curve for x >= 0, symmetric about 0.5. `contrast` 0 is the identity, 0.5 and above a
/// hard step. For `contrast` >= 0, values above 1 are unchanged. The result is never below 0.
float contrastCurve(float x, float contrast);

/// Tables of tones. The type of television determines which tables exist;
/// the others are null.
template <class P>
struct ToneTables {
    /// Entries of a table: one for every value from 0 to PixelTraits::kTop.
    static constexpr std::int32_t kEntries = static_cast<std::int32_t>(PixelTraits<P>::kTop) + 1;

    std::unique_ptr<std::int32_t[]> lutMono;
    std::unique_ptr<std::int32_t[]> lutRed;
    std::unique_ptr<std::int32_t[]> lutGreen;
    std::unique_ptr<std::int32_t[]> lutBlue;
    std::unique_ptr<P[]> tintTable;
    bool identity = false;  ///< the tables of all three guns are identities

    /// False if memory ran out. With `useThreads` all workers share the entries.
    bool build(const SignalParameters& signal, bool useThreads = false);

private:
    bool allocate(TvType type);
    void fill(const SignalParameters& signal, Span entries);
};

extern template struct ToneTables<Rgba8>;
extern template struct ToneTables<RgbaS214>;

}  // namespace ruvex
