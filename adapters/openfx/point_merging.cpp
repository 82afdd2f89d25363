#include "adapters/openfx/point_merging.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ruvex::openfx {
namespace {

/// Part of the value; twice that of a float.
constexpr double kTolerance = 2.4e-7;

double toleranceOf(double value) {
    return kTolerance * std::max(1.0, std::abs(value));
}

/// The slopes of lines from one point that pass all later ones within the tolerance.
class SlopeRange {
public:
    explicit SlopeRange(const FrameKey& from) : from_(from) {}

    /// Whether the line to `point` passes all points that were added.
    bool allows(const FrameKey& point) const {
        const double slope = (point.value - from_.value) / (point.frame - from_.frame);
        return slope >= low_ && slope <= high_;
    }

    void add(const FrameKey& point) {
        const double length = point.frame - from_.frame;
        const double rise = point.value - from_.value;
        const double tolerance = toleranceOf(point.value);
        low_ = std::max(low_, (rise - tolerance) / length);
        high_ = std::min(high_, (rise + tolerance) / length);
    }

private:
    FrameKey from_;
    double low_ = -std::numeric_limits<double>::infinity();
    double high_ = std::numeric_limits<double>::infinity();
};

}  // namespace

bool nearlyEqual(double a, double b) {
    return std::abs(a - b) <= toleranceOf(std::max(std::abs(a), std::abs(b)));
}

bool isLinear(const FrameKey& begin, const FrameKey& end, std::span<const FrameKey> between) {
    const double slope = (end.value - begin.value) / (end.frame - begin.frame);
    return std::ranges::all_of(between, [&](const FrameKey& point) {
        return nearlyEqual(point.value, begin.value + (point.frame - begin.frame) * slope);
    });
}

std::vector<FrameKey> mergePoints(std::span<const FrameKey> points) {
    std::vector<FrameKey> kept{points.front()};
    SlopeRange slopes(kept.back());
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!slopes.allows(points[i])) {
            kept.push_back(points[i - 1]);
            slopes = SlopeRange(kept.back());
        }
        slopes.add(points[i]);
    }
    if (points.size() > 1) kept.push_back(points.back());
    return kept;
}

}  // namespace ruvex::openfx
