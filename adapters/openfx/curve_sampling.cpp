#include "adapters/openfx/curve_sampling.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

#include "adapters/openfx/point_merging.h"

namespace ruvex::openfx {
namespace {

/// So many frames of a segment are read one by one; after that, every second up to twice this
/// number, then every fourth up to four times, and so on.
constexpr double kEveryFrame = 16384.0;

/// The part of a curve between two frames: keys of the host, or an end of what is sampled.
class Segment {
public:
    Segment(const HostCurve& curve, FrameKey begin, FrameKey end, double first, double last)
        : curve_(curve), begin_(begin), end_(end) {
        readBetween(std::max(begin.frame, first), std::min(end.frame, last));
    }

    /// The keys from the beginning up to, but without, the end.
    std::vector<FrameKey> keys() const {
        if (isLinear(begin_, end_, between_)) return {begin_};
        if (isConstant()) return {{begin_.frame, begin_.value, looks::KeyMode::Hold}};
        std::vector<FrameKey> points{begin_};
        points.insert(points.end(), between_.begin(), between_.end());
        points.push_back(end_);
        std::vector<FrameKey> merged = mergePoints(points);
        merged.pop_back();
        return merged;
    }

private:
    /// Reads whole frames from `from` to `to`, and these two where they are within the segment. If
    /// there is none, the middle is read, which tells a step from a slope. Where not every frame is
    /// read, the last one is not before `to`: the points that are read do not depend on it.
    void readBetween(double from, double to) {
        constexpr double kMiddle = 0.5;
        if (from > begin_.frame) read(from);
        double step = 1.0;
        double frame = std::floor(from) + 1.0;
        for (; frame < to; frame += step) {
            read(frame);
            step = stepAfter(frame - from);
        }
        const double last = step == 1.0 ? to : frame;
        if (last < end_.frame && last > from) read(last);
        if (between_.empty()) read(begin_.frame + (end_.frame - begin_.frame) * kMiddle);
    }

    /// The distance of the next frame that is read, in frames.
    static double stepAfter(double framesBefore) {
        const auto quotient = static_cast<std::uint64_t>(framesBefore / kEveryFrame);
        return quotient == 0 ? 1.0 : 2.0 * static_cast<double>(std::bit_floor(quotient));
    }

    void read(double frame) { between_.push_back({frame, curve_.valueAt(frame)}); }

    bool isConstant() const {
        return std::ranges::all_of(between_, [&](const FrameKey& point) {
            return nearlyEqual(point.value, begin_.value);
        });
    }

    const HostCurve& curve_;
    FrameKey begin_, end_;
    std::vector<FrameKey> between_;
};

/// The frames at which segments begin and end: the keys that matter from `first` to `last`, and
/// these two where there is no key before or after them.
std::vector<double> bordersOf(const std::vector<double>& keyFrames, double first, double last) {
    auto begin = std::ranges::upper_bound(keyFrames, first);
    if (begin != keyFrames.begin()) --begin;
    auto end = std::ranges::lower_bound(keyFrames, last);
    if (end != keyFrames.end()) ++end;
    std::vector<double> borders;
    if (begin == end || *begin > first) borders.push_back(first);
    borders.insert(borders.end(), begin, std::max(begin, end));
    if (borders.back() < last) borders.push_back(last);
    return borders;
}

bool isConstantCurve(std::span<const FrameKey> keys) {
    return std::ranges::all_of(
        keys, [&](const FrameKey& key) { return key.value == keys.front().value; });
}

}  // namespace

std::vector<FrameKey> sampleCurve(const HostCurve& curve, const std::vector<double>& keyFrames,
                                  double first, double last) {
    std::vector<FrameKey> points;
    for (const double frame : bordersOf(keyFrames, first, last)) {
        points.push_back({frame, curve.valueAt(frame)});
    }
    std::vector<FrameKey> keys;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const auto part = Segment(curve, points[i - 1], points[i], first, last).keys();
        keys.insert(keys.end(), part.begin(), part.end());
    }
    keys.push_back(points.back());
    if (isConstantCurve(keys)) keys.resize(1);
    return keys;
}

looks::ParameterChange changeOf(ParameterId id, const std::vector<FrameKey>& keys, double rate) {
    if (keys.size() == 1) return looks::Setting{id, keys.front().value};
    looks::Animation animation{id, {}};
    for (const FrameKey& key : keys) {
        animation.keys.push_back({key.frame / rate, key.value, key.mode});
    }
    return animation;
}

}  // namespace ruvex::openfx
