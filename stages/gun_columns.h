// The columns that a misaligned gun reads.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {

/// Finds the ranges of consecutive columns that a gun reads for consecutive pixels of a row, and
/// keeps the first of them for the next row, since most rows begin at the same column. Column
/// positions are truncated towards zero, so the column at zero is read twice.
class GunColumns {
public:
    struct Run {
        std::int32_t first;   ///< column
        std::int32_t length;  ///< columns, at least 1
    };

    /// Begins a row of `count` pixels, at column x of a gun without an offset.
    void startRow(float offset, std::int32_t x, std::int32_t count) {
        if (offset == offset_ && x == x_ && count == count_) return;
        offset_ = offset;
        x_ = x;
        count_ = count;
        kept_ = 0;
    }

    /// The run number `number` of the row, which begins at its pixel `begin`. Runs have to be asked
    /// for in their order.
    Run run(std::size_t number, std::int32_t begin) {
        if (number < kept_) return runs_[number];
        const Run found = find(begin);
        if (number < runs_.size()) runs_[kept_++] = found;
        return found;
    }

private:
    std::int32_t columnOf(std::int32_t pixel) const {
        return truncateToInt(static_cast<float>(wrapAdd(x_, pixel)) - offset_);
    }
    Run find(std::int32_t begin) const {
        const std::int32_t first = columnOf(begin);
        std::int32_t length = 1;
        while (begin + length < count_ && columnOf(begin + length) == wrapAdd(first, length)) {
            ++length;
        }
        return {first, length};
    }

    float offset_ = 0.0f;
    std::int32_t x_ = 0;
    std::int32_t count_ = 0;
    std::size_t kept_ = 0;
    std::array<Run, 8> runs_{};
};

}  // namespace ruvex
