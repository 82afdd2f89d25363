#include "imaging/tex_axis.h"

#include <algorithm>
#include <limits>

#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

constexpr std::int32_t kWithoutEnd = std::numeric_limits<std::int32_t>::max();

// The place of position e (relative to the low end, outside 0..n-1) in a range of n pixels that is
// repeated without end; for the mirror method every second repetition runs backwards.
struct Folded {
    std::int32_t position;  // 0..n-1
    bool backwards;         // an odd repetition
};

Folded fold(std::int64_t e, std::int64_t n, bool mirror) {
    // The quotient e / n rounded down, for negative e too.
    const std::int64_t period = e >= 0 ? e / n : -((-e - 1) / n) - 1;
    const std::int64_t within = e - period * n;
    const bool backwards = mirror && (period & 1) != 0;
    return {static_cast<std::int32_t>(backwards ? n - 1 - within : within), backwards};
}

}  // namespace

void TexAxis::setSize(std::int32_t n) {
    size = n;
    lo = 0;
    hi = wrapSubtract(n, 1);
    count = n;
}

void TexAxis::setRange(std::int32_t a, std::int32_t b) {
    if (size < 1) {
        lo = 0;
        hi = -1;
        count = 0;
        return;
    }
    lo = std::clamp(std::min(a, b), 0, size - 1);
    hi = std::clamp(std::max(a, b), 0, size - 1);
    count = hi - lo + 1;
}

void TexAxis::setOrigin(std::int32_t value) {
    origin = value;
    originF = static_cast<float>(value);
}

void TexAxis::setOrigin(float value) {
    originF = value;
    origin = floorToInt(value + 0.5f);
}

std::int32_t TexAxis::lastCoordinate() const {
    return saturate(std::int64_t{offset} + size - 1);
}

std::int32_t TexAxis::mapOutside(std::int32_t index) const {
    if (count < 1) return kNoPixel;
    switch (edgeMethod) {
        case kEdgeHold:
            return index < lo ? lo : hi;
        case kEdgeMirror:
        case kEdgeWrap:
            return lo + fold(std::int64_t{index} - lo, count, edgeMethod == kEdgeMirror).position;
        default:
            return kNoPixel;
    }
}

TexPair TexAxis::mapPairOutside(std::int64_t e) const {
    if (count < 1) return {kNoPixel, kNoPixel, false};
    const std::int32_t last = count - 1;
    switch (edgeMethod) {
        case kEdgeHold: {
            const std::int32_t held = e < 0 ? lo : hi;
            return {held, held, false};
        }
        case kEdgeMirror: {
            const Folded f = fold(e, count, true);
            const std::int32_t first = lo + f.position;
            if (f.backwards) return {first, f.position == 0 ? lo : first - 1, false};
            if (f.position == last) return {first, first, false};
            return {first, first + 1, true};
        }
        case kEdgeWrap: {
            const std::int32_t position = fold(e, count, false).position;
            if (position == last) return {lo + last, lo, false};
            return {lo + position, lo + position + 1, true};
        }
        default:
            if (e < 0) return {kNoPixel, e == -1 ? lo : kNoPixel, false};
            return {e < count ? hi : kNoPixel, kNoPixel, false};
    }
}

TexRun TexAxis::mapRun(std::int32_t coordinate) const {
    const std::int32_t d = wrapSubtract(coordinate, origin);
    if (d >= lo && d <= hi) return {d, 1, hi - d + 1};
    if (count < 1) return {kNoPixel, 0, kWithoutEnd};

    const std::int64_t e = std::int64_t{d} - lo;
    const std::int32_t flat = d < lo ? saturate(-e) : kWithoutEnd;
    switch (edgeMethod) {
        case kEdgeHold:
            return {d < lo ? lo : hi, 0, flat};
        case kEdgeMirror:
        case kEdgeWrap: {
            const Folded f = fold(e, count, edgeMethod == kEdgeMirror);
            if (f.backwards) return {lo + f.position, -1, f.position + 1};
            return {lo + f.position, 1, count - f.position};
        }
        default:
            return {kNoPixel, 0, flat};
    }
}

}  // namespace ruvex
