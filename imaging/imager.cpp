#include "imaging/imager.h"

#include <algorithm>
#include <cstdio>

#include "imaging/maths/wrap.h"
#include "imaging/threads.h"

namespace ruvex {
namespace {

std::int32_t hold(std::int32_t value, std::int32_t low, std::int32_t high) {
    return std::max(low, std::min(value, high));
}

}  // namespace

void Imager::setWindow(std::int32_t left, std::int32_t top, std::int32_t right,
                       std::int32_t bottom) {
    windowed = true;
    clipPending = true;
    x0 = left;
    y0 = top;
    x1 = wrapAdd(right, 1);
    y1 = wrapAdd(bottom, 1);
}

void Imager::copyWindow(const Imager& other) {
    windowed = true;
    clipPending = true;
    x0 = other.x0;
    y0 = other.y0;
    x1 = other.x1;
    y1 = other.y1;
}

std::int32_t fieldStart(std::int32_t fieldMode, std::int32_t y) {
    if (fieldMode == 1) return wrapAdd(y, 1) & ~1;
    if (fieldMode == 2) return y / 2 * 2 + 1;
    return y;
}

void Imager::begin(VxTexIndexer& onto) {
    map = &onto;
    mapWidth = onto.x.size;
    mapHeight = onto.y.size;
    resolveWindow();
}

void Imager::resolveWindow() {
    const TexAxis& x = map->x;
    const TexAxis& y = map->y;
    if (windowed) {
        x0 = hold(x0, x.offset, x.lastCoordinate());
        y0 = hold(y0, y.offset, y.lastCoordinate());
        x1 = wrapAdd(hold(wrapSubtract(x1, 1), x.offset, x.lastCoordinate()), 1);
        y1 = wrapAdd(hold(wrapSubtract(y1, 1), y.offset, y.lastCoordinate()), 1);
    } else {
        x0 = x.offset;
        y0 = y.offset;
        x1 = wrapAdd(x.lastCoordinate(), 1);
        y1 = wrapAdd(y.lastCoordinate(), 1);
    }
    // Compared with (0, 0) and not with the Map's offset: for a Map with an offset the flag is set
    // even if the window is the whole Map.
    windowed = !(x0 == 0 && y0 == 0 && x1 == mapWidth && y1 == mapHeight);
}

void Imager::applyPendingClip() {
    if (!clipPending || !windowed) return;
    const auto clip = [](std::int32_t value, const TexAxis& axis) {
        return hold(value, axis.offset, wrapAdd(axis.lastCoordinate(), 1));
    };
    x0 = clip(x0, map->x);
    x1 = clip(x1, map->x);
    y0 = clip(y0, map->y);
    y1 = clip(y1, map->y);
    clipPending = false;
}

RowLoop Imager::rowLoop() const {
    const std::int32_t rows = windowed ? wrapSubtract(y1, y0) : mapHeight;
    const std::int32_t workers = singleThread ? 1 : workerCount();
    const std::int32_t worker = singleThread ? 0 : workerIndex();
    RowShare share = shareOfRows(rows, workers, worker);
    if (windowed) {
        share.first += y0;
        share.end += y0;
    }
    return {fieldStart(share.first), share.end, fieldStep(), windowed ? x0 : 0,
            windowed ? x1 : mapWidth};
}

void printLine(const char* line) {
    std::fprintf(stderr, "%s\n", line);
}

}  // namespace ruvex
