// Which rows of a padded picture a frame reads.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/img_proc.h"

namespace ruvex {

/// A few stretches of rows, which wrap after `height`.
struct RowsRead {
    std::int32_t height = 1;
    std::array<Span, 3> spans{};  ///< row indices before they wrap

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
