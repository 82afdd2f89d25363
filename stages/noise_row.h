// Fractal noise for all columns of a row at once.

#pragma once

#include <cstdint>
#include <memory>
#include <new>

#include "imaging/img_proc.h"
#include "imaging/noise/gradient_noise.h"

namespace ruvex {

/// A worker's scratch memory with one float per column. Null if memory ran out.
class ScratchRow : public std::unique_ptr<float[]> {
public:
    explicit ScratchRow(Span columns)
        : std::unique_ptr<float[]>(new (std::nothrow) float[static_cast<std::size_t>(
              columns.end > columns.first ? columns.end - columns.first : 0)]) {}
};

/// Computes noise for rows of one width. Each worker makes one before its rows; it holds scratch
/// memory.
class NoiseRow {
public:
    explicit NoiseRow(Span columns) : columns_(columns), places_(columns), values_(columns) {}

    /// False if memory ran out.
    bool usable() const { return places_ && values_; }

    /// The noise of each column, at position place(x) on the noise curve; x is the column number,
    /// as a float. Valid until the next call.
    template <class Place>
    const float* make(const VxGradientNoise& noise, std::int32_t octaves, Place place) {
        const std::int32_t count = columns_.end - columns_.first;
        for (std::int32_t i = 0; i < count; ++i) {
            places_[i] = place(static_cast<float>(columns_.first + i));
        }
        noise.fractalNoiseRow(places_.get(), count, octaves, values_.get());
        return values_.get();
    }

private:
    Span columns_;
    ScratchRow places_;
    ScratchRow values_;
};

}  // namespace ruvex
