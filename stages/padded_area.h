// The geometry of the picture with its margins, and the rows of it that a frame reads.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/img_proc.h"

namespace ruvex {

/// The geometry of the picture with its margins, in image space. The whole wraps in both
/// directions.
struct PaddedArea {
    std::int32_t marginX = 0;
    std::int32_t marginY = 0;
    std::int32_t width = 0;  ///< of the picture and both margins
    std::int32_t height = 0;
    Span rows{0, 0};  ///< the rows that the frame's window needs; others are not computed
    Span columns{0, 0};

    /// The index of a column or row, 0 to the size - 1, wrapped.
    std::int32_t columnIndex(std::int32_t x) const { return wrapped(x, marginX, width); }
    std::int32_t rowIndex(std::int32_t y) const { return wrapped(y, marginY, height); }

    bool makes(Span wantedRows, Span wantedColumns) const {
        return wantedRows.first >= rows.first && wantedRows.end <= rows.end &&
               wantedColumns.first >= columns.first && wantedColumns.end <= columns.end;
    }

private:
    static std::int32_t wrapped(std::int32_t coordinate, std::int32_t margin, std::int32_t size) {
        const std::int64_t index = (std::int64_t{coordinate} + margin) % size;
        return static_cast<std::int32_t>(index < 0 ? index + size : index);
    }
};

/// The rows that are read: up to three ranges, which wrap after `height`.
struct RowsRead {
    std::int32_t height = 1;
    std::array<Span, 3> spans{};  ///< row indices before wrapping

    bool has(std::int32_t row) const {
        for (const Span& span : spans) {
            const std::int64_t length = std::int64_t{span.end} - span.first;
            if (length <= 0) continue;
            std::int64_t index = (std::int64_t{row} - span.first) % height;
            if (index < 0) index += height;
            if (index < length) return true;
        }
        return false;
    }
};

}  // namespace ruvex
