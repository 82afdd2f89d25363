#include "imaging/blur_gauss.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "imaging/copy_samplers.h"
#include "imaging/pixel_convert.h"
#include "imaging/threads.h"
#include "imaging/wrap.h"

namespace ruvex {
namespace {

constexpr std::int32_t kPassX = 0;
constexpr std::int32_t kPassY = 1;
constexpr std::int32_t kPassEnd = 2;

// The row buffers hold integers or floats, 4 bytes either way.
template <class P>
constexpr std::int32_t kBufferPixel = P::kComponents * 4;

float settledRadius(float radius, double limit) {
    if (radius > limit) return static_cast<float>(limit);
    // What is negative or no number blurs nothing.
    return radius > 0.0f ? radius : 0.0f;
}

// The calling worker's part of positions `first` to `end` - 1.
LineRange workerShare(std::int32_t first, std::int32_t end) {
    const std::int32_t lines = saturate(std::int64_t{end} - first);
    const RowShare share = shareOfRows(lines, workerCount(), workerIndex());
    return {std::int64_t{first} + share.first, std::int64_t{first} + share.end};
}

LineRange writableRange(const TexAxis& axis) {
    return {axis.offset, std::int64_t{axis.offset} + axis.size};
}

}  // namespace

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
    const double limit = std::max(this->mapWidth, this->mapHeight) * 3.0;
    radiusX = settledRadius(radiusX, limit);
    radiusY = settledRadius(radiusY, limit);
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
    // The window lies in the Map by now. A clip still pending would cut off the margin of pass 0.
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

    // With fewer than three boxes, or a kept buffer of another size, pass 1 can come upon pixels
    // that pass 0 has not written.
    const bool covered = margin() >= 3 * BoxWeights(radiusY).reach + 3;
    if (!covered || temp->x.size != width || temp->y.size != rows) {
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
    if (this->pass == kPassY) blurY(*target);
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
void GaussSampler<P, Mask, A>::blurX(const Texture& source) {
    const BoxPlan plan = planX(source);
    if (!plan.possible()) return raiseOutOfMemory(this->interrupt);
    LineRange rows = workerShare(this->y0, this->y1).meet(writableRange(temp->y));
    // Without a blur along Y no row of the margin is ever read.
    if (radiusY == 0.0f) rows = rows.meet({savedY0, savedY1});
    blurRows<P, Mask, A>(source, *temp, plan, rows, this->interrupt);
}

template <class P, std::uint32_t Mask, BlurArithmetic A>
void GaussSampler<P, Mask, A>::blurY(Texture& target) {
    const BoxPlan plan = planY(target);
    if (!plan.possible()) return raiseOutOfMemory(this->interrupt);
    blurColumns<P, Mask, A>(*temp, target, plan, workerShare(this->x0, this->x1), this->interrupt);
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
