#include "imaging/img_filler.h"

#include <algorithm>
#include <cstring>

#include "imaging/imager.h"
#include "imaging/maths/wrap.h"

namespace ruvex {
namespace {

// The three passes that fill the area outside a rectangle.
constexpr std::int32_t kPassAbove = 0;
constexpr std::int32_t kPassBeside = 1;
constexpr std::int32_t kPassBelow = 2;

}  // namespace

template <class P>
void VxImgFiller<P>::pre() {
    if (useInside) this->setPasses(3);
}

template <class P>
void VxImgFiller<P>::prePass() {
    if (!useInside) return;
    if (this->pass != kPassAbove) pop();
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    const std::int32_t aboveInside = saturate(std::int64_t{insideTop} - 1);
    const std::int32_t lastInside = saturate(std::int64_t{insideBottom} - 1);
    if (this->pass == kPassAbove) {
        bottom = std::min(bottom, aboveInside);
    } else if (this->pass == kPassBeside) {
        top = std::max(top, insideTop);
        bottom = std::min(bottom, lastInside);
    } else if (this->pass == kPassBelow) {
        top = std::max(top, insideBottom);
    }
    pushAndSet(left, top, right, bottom);
}

template <class P>
void VxImgFiller<P>::post() {
    if (useInside) pop();
}

template <class P>
void VxImgFiller<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    for (std::int32_t y = fieldStart(fieldMode, rows.first); y < rows.end;
         y += fieldStep(fieldMode)) {
        if (interruptCheck(this->interrupt)) return;
        if (useInside && this->pass == kPassBeside) {
            fillColumns(y, columns.first, std::min(columns.end, insideLeft));
            fillColumns(y, std::max(columns.first, insideRight), columns.end);
        } else {
            fillColumns(y, columns.first, columns.end);
        }
    }
}

template <class P>
void VxImgFiller<P>::fillColumns(std::int32_t y, std::int32_t first, std::int32_t end) {
    if (first >= end) return;
    P* row = this->target->writeAt(first, y);
    if (zero || fillColour == P{}) {
        std::memset(static_cast<void*>(row), 0, static_cast<std::size_t>(end - first) * sizeof(P));
    } else {
        std::fill_n(row, end - first, fillColour);
    }
}

template class VxImgFiller<Rgba8>;
template class VxImgFiller<RgbaS214>;

}  // namespace ruvex
