#include "adapters/common/parameter_scale.h"

#include <algorithm>
#include <cmath>

namespace ruvex::adapters {
namespace {

constexpr double kStepsOfReals = 1e9;
constexpr double kStepsOfChannels = 1e4;
constexpr double kPercent = 100.0;

double roundedTo(double value, double stepsPerUnit) {
    return std::round(value * stepsPerUnit) / stepsPerUnit;
}

}  // namespace

double valueAt(const ParameterRow& row, double position) {
    const Range range = *row.controlRange;
    const double value = range.low + std::clamp(position, 0.0, 1.0) * (range.high - range.low);
    return isReal(row.kind) ? roundedTo(value, kStepsOfReals) : std::round(value);
}

double positionOf(const ParameterRow& row, double value) {
    const Range range = *row.controlRange;
    return std::clamp((value - range.low) / (range.high - range.low), 0.0, 1.0);
}

double channelPercent(double channel) {
    return roundedTo(std::clamp(channel, 0.0, 1.0) * kPercent, kStepsOfChannels);
}

}  // namespace ruvex::adapters
