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
        P* const to = this->target->writeAt(columns.first, y);
        P* const end = to + (columns.end - columns.first);
        if (y < 0 || y >= height.size) {
            std::fill(to, end, P{});
            continue;
        }
        P* const picture = to - columns.first;
        std::fill(to, picture, P{});
        SimpleLineCopier::copyRow(picture, *this->source, 0, y, width.size);
        std::fill(picture + width.size, end, P{});
    }
}

template class Padder<Rgba8>;
template class Padder<RgbaS214>;

}  // namespace ruvex
