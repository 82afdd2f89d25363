// Ghosts: weaker copies of the picture beside itself.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/pixel.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Whether there are any at this level.
bool hasGhosts(const SignalParameters& signal);

/// The ghosts of one frame. One for each worker, whose scratch it holds.
template <class P>
class Ghosts {
public:
    explicit Ghosts(const SignalParameters& signal);

    /// False when memory ran out, or for more ghosts than a buffer may hold.
    bool usable() const { return offsets_ && weights_ && rows_; }

    /// Adds them to `count` pixels of a row that wraps after `width`: `row` holds it twice, one
    /// after the other, and `first`, 0 to width - 1, is the first of the pixels. `count` is at most
    /// `width`. `to` must lie elsewhere.
    void add(const P* row, std::int32_t width, std::int32_t first, std::int32_t count, P* to);

private:
    std::int32_t count_;
    std::unique_ptr<std::int32_t[]> offsets_;  // columns to the right that each reads
    std::unique_ptr<float[]> weights_;         // negative for a negative image
    std::unique_ptr<const P*[]> rows_;
};

extern template class Ghosts<Rgba8>;
extern template class Ghosts<RgbaS214>;

}  // namespace ruvex
