#include "stages/padded_source.h"

#include <algorithm>
#include <limits>

#include "imaging/line_copier.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"
#include "stages/edge_adder.h"
#include "stages/signal_rows.h"

namespace ruvex {
namespace {

// A margin in whole pixels; 0 for negative sizes and NaN. The upper limit is larger than any
// picture for which memory can be allocated.
std::int32_t clampedMargin(float margin) {
    constexpr std::int32_t kLargest = 1 << 28;
    return std::clamp(truncateToInt(margin), 0, kLargest);
}

// Rows first .. end - 1 as row indices of a picture that begins at `origin` and wraps. All rows if
// the indices would exceed 32 bits.
Span indicesOf(std::int64_t first, std::int64_t end, std::int32_t origin, std::int32_t height) {
    const std::int64_t from = wrapSubtract(saturate(first), origin);
    const std::int64_t to = from + (end - first);
    if (first >= end || to > std::numeric_limits<std::int32_t>::max()) return {0, height};
    return {static_cast<std::int32_t>(from), static_cast<std::int32_t>(to)};
}

std::int32_t paddedOriginY(const SignalParameters& signal, const PaddedArea& area) {
    return wrapSubtract(signal.verticalOffset, area.marginY);
}

// Copies a picture into a larger one, at the place given by their offsets, and paints the border.
// Rows of the margins that are not read are not cleared.
template <class P>
class Padder : public VxImgProc2<VxTexture<P>, VxTexture<P>> {
public:
    void pre() override { border.target = this->target; }
    void run() override;

    const RowsRead* rowsRead = nullptr;  // not owned
    EdgeAdder<P> border;

private:
    void copy(Span rows, Span columns);
};

// A worker paints what it has just copied.
template <class P>
void Padder<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    copy(rows, columns);
    if (!interruptCheck(this->interrupt)) border.paint(rows, columns);
}

template <class P>
void Padder<P>::copy(Span rows, Span columns) {
    const TexAxis& width = this->source->x;
    const TexAxis& height = this->source->y;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        if (!rowsRead->has(y - this->target->y.offset)) continue;
        P* to = this->target->writeAt(columns.first, y);
        const bool crossed = y >= 0 && y < height.size;
        const std::int32_t left = std::clamp(0, columns.first, columns.end);
        const std::int32_t right = crossed ? std::clamp(width.size, left, columns.end) : left;
        to = std::fill_n(to, left - columns.first, P{});
        SimpleLineCopier::copyRow(to, *this->source, left, y, right);
        std::fill_n(to + (right - left), columns.end - right, P{});
    }
}

template <class P>
void setBorder(const SignalParameters& signal, const PaddedArea& area, EdgeAdder<P>& edge) {
    edge.left = -area.marginX;
    edge.right = truncateToInt(static_cast<float>(area.marginX) + signal.width);
    edge.top = -area.marginY;
    edge.bottom = truncateToInt(static_cast<float>(area.marginY) + signal.height);
    edge.borderAlpha = signal.borderAlpha;
    edge.seed = static_cast<std::uint32_t>(signal.seed);
    edge.sourceFrame = signal.sourceFrame;
    edge.noiseTable = signal.noiseTable;
}

}  // namespace

PaddedArea paddedArea(const SignalParameters& signal, const VxTexIndexer& source, float scaleY) {
    const float width = signal.width - static_cast<float>(signal.originX);
    const float height = signal.height - static_cast<float>(signal.originY);
    PaddedArea area;
    area.marginX = clampedMargin(width * scaleY / 7.0f);
    area.marginY = clampedMargin(height / 10.0f);
    const VxTexIndexer layout = paddedLayout(source, area);
    area.width = layout.x.size;
    area.height = layout.y.size;
    return area;
}

VxTexIndexer paddedLayout(const VxTexIndexer& source, const PaddedArea& area) {
    VxTexIndexer layout(source, {area.marginX, area.marginY, area.marginX, area.marginY});
    layout.x.offset = -area.marginX;
    layout.y.offset = -area.marginY;
    return layout;
}

RowsRead rowsRead(const SignalParameters& signal, const PaddedArea& area, Span rows) {
    RowsRead read{.height = area.height};
    const std::int32_t origin = paddedOriginY(signal, area);
    if (!gunsApart(signal)) {
        read.spans[0] = indicesOf(rows.first, rows.end, origin, area.height);
        return read;
    }
    const float offsets[] = {signal.gunRedY, signal.gunGreenY, signal.gunBlueY};
    for (std::size_t gun = 0; gun < read.spans.size(); ++gun) {
        const auto rowOf = [&](std::int32_t y) {
            return std::int64_t{truncateToInt(static_cast<float>(y) - offsets[gun])};
        };
        read.spans[gun] =
            indicesOf(rowOf(rows.first), rowOf(rows.end - 1) + 1, origin, area.height);
    }
    return read;
}

template <class P>
bool padSource(const SignalParameters& signal, const PaddedArea& area, const RowsRead& rows,
               VxTexture<P>& source, VxTexture<P>& padded, KeptBuffer& memory,
               const VxImgProc& run) {
    padded.setFill(source.fill);
    const VxTexIndexer layout = paddedLayout(source, area);
    padded.placeLayout(layout, memory.reserve(imageBytes(layout.x.size, layout.y.size, sizeof(P))));
    if (!padded.data) {
        raiseOutOfMemory(run.interrupt);
        return false;
    }
    // With kEdgeWrap on both axes, picture and border roll as a closed loop. The origin contains
    // the vertical offset.
    padded.setOrigin(-area.marginX, paddedOriginY(signal, area));
    padded.x.offset = -area.marginX;
    padded.y.offset = -area.marginY;
    padded.setEdgeMethods(kEdgeWrap, kEdgeWrap);

    Padder<P> padder;
    padder.interrupt = padder.border.interrupt = run.interrupt;
    padder.useThreads = run.useThreads;
    padder.rowsRead = padder.border.rowsRead = &rows;
    setBorder(signal, area, padder.border);
    padder.process(source, padded);
    if (interruptCheck(run.interrupt)) return false;
    return true;
}

template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                        VxTexture<Rgba8>&, VxTexture<Rgba8>&, KeptBuffer&, const VxImgProc&);
template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                        VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, KeptBuffer&, const VxImgProc&);

}  // namespace ruvex
