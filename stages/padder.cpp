#include "stages/padder.h"

#include <algorithm>

#include "imaging/line_copier.h"

namespace ruvex {

template <class P>
void Padder<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    const TexAxis& width = this->source->x;
    const TexAxis& height = this->source->y;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        if (rowsRead && !rowsRead->has(y - this->target->y.offset)) continue;
        P* to = this->target->writeAt(columns.first, y);
        const bool crossed = y >= 0 && y < height.size;
        const std::int32_t left = std::clamp(0, columns.first, columns.end);
        const std::int32_t right = crossed ? std::clamp(width.size, left, columns.end) : left;
        to = std::fill_n(to, left - columns.first, P{});
        SimpleLineCopier::copyRow(to, *this->source, left, y, right);
        std::fill_n(to + (right - left), columns.end - right, P{});
    }
}

template class Padder<Rgba8>;
template class Padder<RgbaS214>;

}  // namespace ruvex
