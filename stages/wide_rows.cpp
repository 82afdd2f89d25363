#include "stages/wide_rows.h"

#include <algorithm>
#include <new>

#include "imaging/buffer.h"

namespace ruvex {
namespace {

template <class P>
std::unique_ptr<P[]> blankRows(std::int32_t width) {
    if (imageBytes(width, 2, sizeof(P)) == 0) return nullptr;
    return std::unique_ptr<P[]>(new (std::nothrow) P[2 * static_cast<std::size_t>(width)]{});
}

}  // namespace

template <class P>
WideRows<P>::WideRows(const SignalParameters& signal, const PaddedArea& area, SignalRows<P>& rows)
    : area_(area), rows_(rows), row_(blankRows<P>(area.width)) {
    if (hasGhosts(signal)) ghosts_.emplace(signal);
}

template <class P>
void WideRows<P>::makeRow(std::int32_t y) {
    const std::int32_t row = area_.rowIndex(y) - area_.marginY;
    P* const all = row_.get();
    if (row < area_.rows.first || row >= area_.rows.end) {
        std::fill_n(all, 2 * std::size_t{static_cast<std::uint32_t>(area_.width)}, P{});
        return;
    }
    rows_.make(row, area_.columns, all + area_.columnIndex(area_.columns.first));
    std::copy_n(all, area_.width, all + area_.width);
}

template <class P>
void WideRows<P>::make(std::int32_t y, Span columns, P* to) {
    makeRow(y);
    // In a window wider than the area, the area is repeated.
    for (std::int32_t x = columns.first; x < columns.end;) {
        const std::int32_t first = area_.columnIndex(x);
        const std::int32_t count = std::min(area_.width, columns.end - x);
        if (ghosts_) {
            ghosts_->add(row_.get(), area_.width, first, count, to);
        } else {
            std::copy_n(row_.get() + first, count, to);
        }
        to += count;
        x += count;
    }
}

template class WideRows<Rgba8>;
template class WideRows<RgbaS214>;

}  // namespace ruvex
