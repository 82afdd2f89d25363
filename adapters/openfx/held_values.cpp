#include "adapters/openfx/held_values.h"

#include <algorithm>
#include <cmath>

namespace ruvex::openfx {

double heldReal(const ParameterRow& row, std::optional<double> value) {
    if (!value || !std::isfinite(*value)) return row.defaultValue;
    const auto range = row.enteredRange();
    return range ? std::clamp(*value, range->low, range->high) : *value;
}

std::optional<double> channelValue(const std::optional<HostColour>& colour, int channel) {
    if (!colour) return {};
    return (*colour)[static_cast<std::size_t>(channel)] * kPercentOfWhite;
}

double roundedPercent(double percent) {
    constexpr double kStepsPerPercent = 1e4;
    return std::round(percent * kStepsPerPercent) / kStepsPerPercent;
}

int heldWhole(const DeclaredParameter& parameter, std::optional<int> value) {
    const auto usual = static_cast<int>(parameter.defaults[0]);
    if (!value) return usual;
    if (parameter.kind == DeclaredKind::CheckBox) return *value != 0 ? 1 : 0;
    if (parameter.kind == DeclaredKind::Choice) {
        const bool exists = *value >= 0 && *value < static_cast<int>(parameter.choices.size());
        return exists ? *value : usual;
    }
    if (!parameter.range) return *value;
    return std::clamp(*value, static_cast<int>(parameter.range->low),
                      static_cast<int>(parameter.range->high));
}

}  // namespace ruvex::openfx
