// Which pixels of a Map an imager writes.

#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "imaging/tex_indexer.h"

namespace ruvex::twin {

/// Inclusive corners, in image space.
struct Corners {
    std::int32_t left, top, right, bottom;
};

struct WindowTwin {
    std::int64_t x0, y0, x1, y1;  ///< ends are one past
    std::int32_t fieldMode;
    std::int32_t workers;

    bool writes(std::int64_t x, std::int64_t y) const {
        return x >= x0 && x < x1 && y >= y0 && y < y1 && inField(y);
    }

private:
    bool inField(std::int64_t y) const {
        if (fieldMode == 0) return true;
        if (fieldMode == 1) return y % 2 == 0;
        // The odd row of the pair that holds a share's first row, with a division that truncates
        // towards 0: below 0 that passes over a share that begins on an odd row.
        const std::int64_t share = (y1 - y0 + workers - 1) / workers;
        const std::int64_t first = y0 + (y - y0) / share * share;
        return y % 2 != 0 && y >= first / 2 * 2 + 1;
    }
};

/// The window that `set` (or none) becomes on a Map of these axes.
inline WindowTwin windowTwin(const VxTexIndexer& map, const std::optional<Corners>& set,
                             std::int32_t fieldMode, std::int32_t workers) {
    const std::int64_t left = map.x.offset, right = left + map.x.size - 1;
    const std::int64_t top = map.y.offset, bottom = top + map.y.size - 1;
    WindowTwin window{left, top, right + 1, bottom + 1, fieldMode, workers};
    if (set) {
        window.x0 = std::clamp<std::int64_t>(set->left, left, right);
        window.y0 = std::clamp<std::int64_t>(set->top, top, bottom);
        window.x1 = std::clamp<std::int64_t>(set->right, left, right) + 1;
        window.y1 = std::clamp<std::int64_t>(set->bottom, top, bottom) + 1;
    }
    return window;
}

}  // namespace ruvex::twin
