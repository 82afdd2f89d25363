#include "imaging/blur/blur_gauss.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "imaging/copy_samplers.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"
#include "imaging/threads.h"

namespace ruvex {
namespace {

constexpr std::int32_t kPassX = 0;
constexpr std::int32_t kPassY = 1;
constexpr std::int32_t kPassEnd = 2;

// Bytes per pixel in a row buffer: 4 per component, integer or float.
template <class P>
constexpr std::int32_t kBufferPixel = P::kComponents * 4;

// The calling worker's share of `lines`.
LineRange workerShare(const LineRange& lines) {
    const std::int32_t count = saturate(lines.end - lines.first);
    const RowShare share = shareOfRows(count, workerCount(), workerIndex());
    return {lines.first + share.first, lines.first + share.end};
}

LineRange writableRange(const TexAxis& axis) {
    return {axis.offset, std::int64_t{axis.offset} + axis.size};
}

}  // namespace

float settledRadius(float radius, std::int32_t mapWidth, std::int32_t mapHeight) {
    const double limit = std::max(mapWidth, mapHeight) * 3.0;
    if (radius > limit) return static_cast<float>(limit);
    // A negative radius and NaN mean no blur.
    return radius > 0.0f ? radius : 0.0f;
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::start(Texture* source, Texture* target) {
    settleRadii();
    save(*source, *target);
    if (radiusX == 0.0f && radiusY == 0.0f) {
        SimpleCopySampler<P> copy;
        copy.copyWindow(*this);
        copy.interrupt = this->interrupt;
        copy.process(source, target);
        this->setPasses(0);
        return;
    }
    target->setEdgeMethods(source->x.edgeMethod, source->y.edgeMethod);
    target->setFill(source->fill);
    if (!prepareTemp(*source)) return raiseOutOfMemory(this->interrupt);
    this->setPasses(3);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::settleRadii() {
    radiusX = radiusX / this->scaleX;
    radiusX = settledRadius(radiusX, this->mapWidth, this->mapHeight);
    radiusY = settledRadius(radiusY, this->mapWidth, this->mapHeight);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::save(const Texture& source, const Texture& target) {
    width = std::max(this->mapWidth, source.x.size);
    height = std::max(this->mapHeight, source.y.size);
    mapOffsetX = target.x.offset;
    mapOffsetY = target.y.offset;
    mapEdgeX = target.x.edgeMethod;
    mapEdgeY = target.y.edgeMethod;
    mapFill = target.fill;
    savedX0 = this->x0;
    savedX1 = this->x1;
    savedY0 = this->y0;
    savedY1 = this->y1;
    sourceOriginX = truncateToInt(source.x.originF);
    sourceOriginY = truncateToInt(source.y.originF);
    copyBack = 0;
    // The window is inside the Map already. Another clip would cut off the margin of pass 0.
    this->clipPending = false;
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
std::int32_t GaussSampler<P, Mask, A>::margin() const {
    return truncateToInt((radiusY + 2.0) * iterations);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
bool GaussSampler<P, Mask, A>::prepareTemp(const Texture& source) {
    const std::int64_t rows = height + 2 * std::int64_t{margin()};
    if (!temp) {
        temp.reset(new (std::nothrow) Texture);
        if (!temp) return false;
        temp->x.setSize(width);
        temp->y.setSize(saturate(std::max<std::int64_t>(rows, 0)));
        temp->allocate();
    }
    if (!temp->data) {
        temp.reset();
        return false;
    }
    temp->setEdgeMethods(source.x.edgeMethod, source.y.edgeMethod);
    temp->setFill(source.fill);
    const std::int32_t top = wrapSubtract(mapOffsetY, margin());
    temp->setOrigin(mapOffsetX, top);
    temp->x.offset = mapOffsetX;
    temp->y.offset = top;

    // If the margin is narrower than the reach of the boxes, or the buffer kept from an earlier run
    // has another size, pass 1 reads pixels that pass 0 does not write. They have to be zero.
    covered_ = margin() >= 3 * BoxWeights(radiusY).reach + 3 && temp->x.size == width &&
               temp->y.size == rows;
    if (!covered_) {
        std::memset(
            temp->data, 0,
            static_cast<std::size_t>(temp->stride) * static_cast<std::size_t>(temp->y.size));
    }
    return true;
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::restoreWindow() {
    this->x0 = savedX0;
    this->x1 = savedX1;
    this->y0 = savedY0;
    this->y1 = savedY1;
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::startPass(Texture*, Texture* target) {
    if (this->pass == kPassX) {
        this->y0 = saturate(std::int64_t{this->y0} - margin());
        this->y1 = saturate(std::int64_t{this->y1} + margin());
    } else if (this->pass == kPassY) {
        restoreWindow();
    } else if (this->pass == kPassEnd) {
        target->x.offset = mapOffsetX;
        target->y.offset = mapOffsetY;
        target->setEdgeMethods(mapEdgeX, mapEdgeY);
        target->setFill(mapFill);
        restoreWindow();
    }
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::work(Texture* source, Texture* target) {
    if (interruptCheck(this->interrupt) || !temp || !temp->data) return;
    if (this->pass == kPassX) blurX(*source);
    if (this->pass == kPassY) blurY(*source, *target);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
BoxPlan GaussSampler<P, Mask, A>::planX(const Texture& source) const {
    return BoxPlan(radiusX, {mapOffsetX, width, source.x.edgeMethod, iterations, kBufferPixel<P>},
                   {this->x0, this->x1}, writableRange(temp->x));
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
BoxPlan GaussSampler<P, Mask, A>::planY(const Texture& target) const {
    return BoxPlan(radiusY, {mapOffsetY, height, temp->y.edgeMethod, iterations, kBufferPixel<P>},
                   {this->y0, this->y1}, writableRange(target.y));
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
bool GaussSampler<P, Mask, A>::marginIsFlat(const Texture& source) const {
    const std::uint32_t method = source.y.edgeMethod;
    return covered_ && method != kEdgeMirror && method != kEdgeWrap;
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
LineRange GaussSampler<P, Mask, A>::rowsBetween(const Texture& source) const {
    const std::int64_t around = radiusY == 0.0f ? 0 : margin();
    const LineRange rows{savedY0 - around, savedY1 + around};
    if (!marginIsFlat(source) || rows.size() == 0) return rows;
    const std::int64_t before = std::int64_t{source.y.origin} + source.y.lo - 1;
    const std::int64_t after = std::int64_t{source.y.origin} + source.y.hi + 1;
    return {std::clamp(before, rows.first, rows.end - 1),
            std::clamp(after, rows.first, rows.end - 1) + 1};
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::blurX(const Texture& source) {
    const BoxPlan plan = planX(source);
    if (!plan.possible()) return raiseOutOfMemory(this->interrupt);
    const LineRange rows = workerShare(rowsBetween(source)).meet(writableRange(temp->y));
    blurRows<P, Mask, A>(source, *temp, plan, rows, this->interrupt);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::blurY(const Texture& source, Texture& target) {
    const BoxPlan plan = planY(target);
    if (!plan.possible()) return raiseOutOfMemory(this->interrupt);
    Texture between;
    between.refer(*temp);
    if (marginIsFlat(source)) {
        const LineRange rows = rowsBetween(source);
        between.y.setRange(static_cast<std::int32_t>(rows.first - temp->y.offset),
                           static_cast<std::int32_t>(rows.end - 1 - temp->y.offset));
        between.y.edgeMethod = kEdgeHold;
    }
    blurColumns<P, Mask, A>(between, target, plan, workerShare({this->x0, this->x1}),
                            this->interrupt);
}

template class GaussSampler<Rgba8, 15, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaS214, 15, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 15, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 7, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 1, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 2, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 4, BlurArithmetic::Fixed>;
template class GaussSampler<RgbaInt, 8, BlurArithmetic::Fixed>;
template class GaussSampler<ChannelInt, 1, BlurArithmetic::Fixed>;
template class GaussSampler<Rgba8, 15, BlurArithmetic::Floating>;
template class GaussSampler<RgbaS214, 15, BlurArithmetic::Floating>;

}  // namespace ruvex
