#include "stages/scan_line_adder.h"

#include "stages/kernels/row_kernels.h"
#include "stages/source_runs.h"

namespace ruvex {

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
        if (columns.first >= columns.end) continue;
        P* const to = this->target->writeAt(columns.first, y);
        overRuns(*this->source, columns.first, y, columns.end - columns.first,
                 [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                     P* const out = to + done;
                     bestRowKernels<P>().dim(inLine(from, step, length, out), length, factor, out);
                 });
    }
}

template class VxScanLineAdder<Rgba8>;
template class VxScanLineAdder<RgbaS214>;

}  // namespace ruvex
