// The picture with its margins, as the signal pass knows it.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"

namespace ruvex {

/// Geometry in image space. The whole wraps in both directions.
struct PaddedArea {
    std::int32_t marginX = 0;
    std::int32_t marginY = 0;
    std::int32_t width = 0;  ///< of the picture and both margins
    std::int32_t height = 0;
    Span rows{0, 0};  ///< what the frame's window makes of it; the rest is nothing
    Span columns{0, 0};

    /// How many columns or rows `coordinate` lies from the first one, 0 to the size.
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

}  // namespace ruvex
