#include "imaging/warp/warp_render.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "imaging/interpolate.h"

namespace ruvex {
namespace {

// The columns of a row that the warper moves, clipped to the window.
Span movedColumns(const VxWarper& warper, const WarpBounds& bounds, std::int32_t y,
                  const RowLoop& loop) {
    const auto row = static_cast<float>(y);
    if (row < bounds.minY || row > bounds.maxY) return {loop.x0, loop.x0};
    WarpSpan span;
    warper.rowSpan(span, y);
    // NaN gives the window's first column, like every smaller value.
    const auto column = [&](float x) {
        if (!(x > static_cast<float>(loop.x0))) return loop.x0;
        return x < static_cast<float>(loop.x1) ? truncateToInt(x) : loop.x1;
    };
    return {column(std::floor(span.first)), column(std::ceil(span.last))};
}

// Source positions of the pixels of one row.
struct Positions {
    std::unique_ptr<float[]> x;
    std::unique_ptr<float[]> y;

    explicit Positions(std::size_t count)
        : x(new (std::nothrow) float[count]), y(new (std::nothrow) float[count]) {}
    bool usable() const { return x && y; }
};

template <class P>
void storeSample(P& to, const RgbaFloat& sample) {
    for (int k = 0; k < 4; ++k) to.c[k] = storeTruncated<typename P::Component>(sample.c[k]);
}

template <class P>
void readNearest(const VxTexture<P>& source, const Positions& at, std::int32_t count, P* to) {
    for (std::int32_t i = 0; i < count; ++i) {
        const P* pixel = source.pixelAt(floorToInt(at.x[i]), floorToInt(at.y[i]));
        to[i] = pixel ? *pixel : source.fill;
    }
}

template <class P>
void readBilinear(const VxTexture<P>& source, const Positions& at, std::int32_t count, P* to) {
    for (std::int32_t i = 0; i < count; ++i) {
        storeSample(to[i],
                    interpolate<P, RgbaFloat>(source.fill, axisSample(source.x, at.x[i]),
                                              sampleRows(source, axisSample(source.y, at.y[i]))));
    }
}

template <class P>
void readCorners(const VxWarper& warper, const VxTexture<P>& source, std::int32_t x, std::int32_t y,
                 std::int32_t count, P* to) {
    const auto corner = [&](std::int32_t cx, std::int32_t cy) {
        WarpPoint point{static_cast<float>(cx), static_cast<float>(cy)};
        warper.warp(point);
        return point;
    };
    for (std::int32_t i = 0; i < count; ++i) {
        const WarpPoint low = corner(x + i, y);
        const WarpPoint high = corner(x + i + 1, y + 1);
        RgbaFloat sample;
        source.sampleBetween(sample, low.x, low.y, high.x, high.y);
        storeSample(to[i], sample);
    }
}

}  // namespace

template <class P>
void VxWarpRender<P>::process(Texture*& target, const Texture& source) {
    if (!target) {
        target = new (std::nothrow) Texture;
        if (target) target->cloneLayout(source);
    }
    if (!checkMap(target, {"Map passed into Generator::process is NULL",
                           "Map passed into Generator::process is bogus"})) {
        return;
    }
    warper->width = target->x.size;
    warper->height = target->y.size;
    warper->aspect = scaleX;
    warper->prepare();
    runOn(*target, *this, &source, target);
}

template <class P>
void VxWarpRender<P>::work(const Texture* source, Texture* target) {
    const RowLoop loop = rowLoop();
    if (loop.first >= loop.end || loop.x0 >= loop.x1) return;
    const Positions at(static_cast<std::size_t>(loop.x1 - loop.x0));
    if (!at.usable()) return raiseOutOfMemory(interrupt);
    WarpBounds bounds;
    warper->bounds(bounds);

    for (std::int32_t y = loop.first; y < loop.end; y += loop.step) {
        if (interruptCheck(interrupt)) return;
        const Span moved = movedColumns(*warper, bounds, y, loop);
        const std::int32_t count = moved.end - moved.first;
        copyRow(target->writeAt(loop.x0, y), *source, loop.x0, y, moved.first);
        P* to = target->writeAt(moved.first, y);
        if (filter == WarpFilter::Corners) {
            readCorners(*warper, *source, moved.first, y, count, to);
        } else if (count > 0) {
            warper->warpRow(moved.first, y, count, at.x.get(), at.y.get());
            const auto read = filter == WarpFilter::Bilinear ? readBilinear<P> : readNearest<P>;
            read(*source, at, count, to);
        }
        const std::int32_t rest = std::max(moved.first, moved.end);
        copyRow(target->writeAt(rest, y), *source, rest, y, loop.x1);
    }
}

template class VxWarpRender<Rgba8>;
template class VxWarpRender<RgbaS214>;

}  // namespace ruvex
