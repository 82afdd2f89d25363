#include "imaging/img_proc.h"

#include <algorithm>
#include <cstdio>

#include "imaging/maths/wrap.h"
#include "imaging/threads.h"

namespace ruvex {

void VxImgProc::process(VxTexIndexer* onto) {
    if (!onto) return;
    mapWidth = onto->x.size;
    mapHeight = onto->y.size;
    map = onto;
    if (!windowSet) {
        x0 = onto->x.offset;
        y0 = onto->y.offset;
        x1 = wrapAdd(x0, mapWidth);
        y1 = wrapAdd(y0, mapHeight);
        windowSet = true;
    }
    clipToTexture(*onto);
    pre();
    runPasses();
    post();
    map = nullptr;
}

void VxImgProc::runPasses() {
    for (pass = 0; pass < passes; ++pass) runPass();
}

void VxImgProc::runPass() {
    if (interruptCheck(interrupt)) return;
    prePass();
    if (interruptCheck(interrupt)) return;
    if (useThreads) {
        inThreadedPass_ = true;
        runOnAllThreads([](VxImgProc* self) { self->run(); }, this);
        inThreadedPass_ = false;
    } else {
        run();
    }
    postPass();
}

void VxImgProc::setWindow(std::int32_t left, std::int32_t top, std::int32_t right,
                          std::int32_t bottom) {
    windowSet = true;
    x0 = left;
    y0 = top;
    x1 = wrapAdd(right, 1);
    y1 = wrapAdd(bottom, 1);
}

void VxImgProc::getWindow(std::int32_t& left, std::int32_t& top, std::int32_t& right,
                          std::int32_t& bottom) const {
    left = x0;
    top = y0;
    right = wrapSubtract(x1, 1);
    bottom = wrapSubtract(y1, 1);
}

void VxImgProc::copyWindow(const VxImgProc& other) {
    x0 = other.x0;
    y0 = other.y0;
    x1 = other.x1;
    y1 = other.y1;
    windowSet = true;
}

Span VxImgProc::rowRange() const {
    if (!inThreadedPass_ || !useThreads) return {y0, y1};
    // In 64 bits, since a stage may set any window, even one that ends before it begins.
    const std::int32_t rows = saturate(std::int64_t{y1} - y0);
    const RowShare share = shareOfRows(rows, workerCount(), workerIndex());
    return {y0 + share.first, y0 + share.end};
}

void VxImgProc::clipWindow(std::int32_t xMin, std::int32_t yMin, std::int32_t xMax,
                           std::int32_t yMax) {
    if (!windowSet) return;
    if (keepWindow) {
        if (x0 < xMin || x1 > xMax) {
            x0 = xMin;
            x1 = xMax;
        }
        if (y0 < yMin || y1 > yMax) {
            y0 = yMin;
            y1 = yMax;
        }
        return;
    }
    // Not std::clamp, which is undefined for low > high. Here such a range gives `low`.
    const auto hold = [](std::int32_t v, std::int32_t low, std::int32_t high) {
        return std::max(low, std::min(v, high));
    };
    x0 = hold(x0, xMin, xMax);
    x1 = wrapAdd(hold(wrapSubtract(x1, 1), xMin, xMax), 1);
    y0 = hold(y0, yMin, yMax);
    y1 = wrapAdd(hold(wrapSubtract(y1, 1), yMin, yMax), 1);
}

void VxImgProc::clipToTexture(const VxTexIndexer& texture) {
    clipWindow(texture.x.offset, texture.y.offset, texture.x.lastCoordinate(),
               texture.y.lastCoordinate());
}

void reportUnusableMap() {
    std::fprintf(stderr, "Map passed into Generator::process is bogus\n");
}

}  // namespace ruvex
