#include "stages/scan_line_adder.h"

#include "imaging/line_copier.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

template <class P>
void dim(P* to, const SourceRun<P>& run, const P& fill, float factor) {
    using Component = typename P::Component;
    const P* from = run.pixels ? run.pixels : &fill;
    for (std::int32_t i = 0; i < run.length; ++i) {
        const P& pixel = from[std::ptrdiff_t{i} * run.step];
        for (int k = 0; k < 4; ++k) {
            to[i].c[k] = storeTruncated<Component>(static_cast<float>(pixel.c[k]) * factor);
        }
    }
}

}  // namespace

template <class P>
float VxScanLineAdder<P>::factorOf(std::int32_t y) const {
    if (lineWidth <= 1) return 1.0f;
    return static_cast<float>(y % lineWidth) / static_cast<float>(lineWidth) * 0.75f + 0.25f;
}

template <class P>
void VxScanLineAdder<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float factor = factorOf(y);
        for (std::int32_t x = columns.first; x < columns.end;) {
            const SourceRun<P> run = sourceRun(*this->source, x, y, columns.end);
            dim(this->target->writeAt(x, y), run, this->source->fill, factor);
            x += run.length;
        }
    }
}

template class VxScanLineAdder<Rgba8>;
template class VxScanLineAdder<RgbaS214>;

}  // namespace ruvex
