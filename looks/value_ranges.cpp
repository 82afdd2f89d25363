#include "looks/value_ranges.h"

#include <algorithm>

namespace ruvex::looks {
namespace {

constexpr double kHighestLevel = 100.0;
/// The render compares levels in single precision; a difference below this may be rounding.
constexpr double kRounding = 0.001;

Range rangeOf(const Setting& setting) {
    return {setting.value, setting.value};
}

Range rangeOf(const Animation& animation) {
    const auto [low, high] = std::ranges::minmax_element(animation.keys, {}, &Key::value);
    return {low->value, high->value};
}

}  // namespace

ValueRanges::ValueRanges(std::span<const ParameterChange> changes) {
    for (const ParameterRow& row : parameterTable()) {
        ranges_[static_cast<std::size_t>(row.id)] = {row.defaultValue, row.defaultValue};
    }
    for (const ParameterChange& change : changes) {
        ranges_[static_cast<std::size_t>(rowOf(change).id)] =
            std::visit([](const auto& either) { return rangeOf(either); }, change);
    }
    for (const ParameterRow& row : parameterTable()) {
        Range& range = ranges_[static_cast<std::size_t>(row.id)];
        range = {renderClamp(row.id, range.low), renderClamp(row.id, range.high)};
    }
}

double ValueRanges::greatestLevel() const {
    return of(ParameterId::BreakupVariation).high > 0.0 ? kHighestLevel
                                                        : of(ParameterId::MasterBreakup).high;
}

bool ValueRanges::levelExceeds(ParameterId threshold) const {
    const double level = greatestLevel();
    const double least = of(threshold).low;
    return least < kHighestLevel && level > 0.0 && level > least - kRounding;
}

}  // namespace ruvex::looks
