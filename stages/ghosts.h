// Ghosts: weaker copies of the picture, displaced along X.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/pixel.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Whether there are ghosts at the signal's level.
bool hasGhosts(const SignalParameters& signal);

/// The ghosts of one frame. Each worker has its own object, with scratch memory.
template <class P>
class Ghosts {
public:
    explicit Ghosts(const SignalParameters& signal);

    /// False if memory ran out or there are too many ghosts for a buffer.
    bool usable() const { return offsets_ && weights_ && rows_; }

    /// Writes `count` pixels of a row with the ghosts to `to`. The row wraps after `width` pixels,
    /// so `row` must hold it twice in succession. `first`, 0 to width - 1, is the first of the
    /// pixels; `count` is at most `width`. `to` must not overlap `row`.
    void add(const P* row, std::int32_t width, std::int32_t first, std::int32_t count, P* to);

private:
    std::int32_t count_;
    std::unique_ptr<std::int32_t[]> offsets_;  // displacement of each ghost, columns to the right
    std::unique_ptr<float[]> weights_;         // negative for a negative image
    std::unique_ptr<const P*[]> rows_;
};

extern template class Ghosts<Rgba8>;
extern template class Ghosts<RgbaS214>;

}  // namespace ruvex
