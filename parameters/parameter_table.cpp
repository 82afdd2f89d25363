#include "parameters/parameter_table.h"

#include <algorithm>

#include "parameters/label_match.h"
#include "parameters/parameter_rows.h"

namespace ruvex {
namespace {

constexpr bool rowsStandInTheOrderOfTheirIds() {
    for (std::size_t i = 0; i < kParameterRows.size(); ++i) {
        if (kParameterRows[i].id != static_cast<ParameterId>(i)) return false;
    }
    return true;
}
static_assert(rowsStandInTheOrderOfTheirIds());

template <class Predicate>
const ParameterRow* findRow(Predicate matches) {
    const auto found = std::find_if(kParameterRows.begin(), kParameterRows.end(), matches);
    return found == kParameterRows.end() ? nullptr : &*found;
}

}  // namespace

std::span<const ParameterRow> parameterTable() {
    return kParameterRows;
}

const ParameterRow& row(ParameterId id) {
    return kParameterRows[static_cast<std::size_t>(id)];
}

const ParameterRow* findParameter(std::string_view label) {
    return findRow([&](const ParameterRow& r) { return labelsMatch(r.label, label); });
}

const ParameterRow* findParameter(const GUID& identifier) {
    return findRow([&](const ParameterRow& r) { return r.identifier == identifier; });
}

const ParameterRow& nearestParameter(std::string_view label) {
    const auto distance = [&](const ParameterRow& r) { return labelDistance(r.label, label); };
    return *std::ranges::min_element(kParameterRows, {}, distance);
}

double renderClamp(ParameterId id, double value) {
    const auto& clamp = row(id).clamp;
    if (!clamp) return value;
    // Negated, so that NaN gives the low end too.
    if (!(value >= clamp->low)) return clamp->low;
    return std::min(value, clamp->high);
}

std::string_view unitText(Unit unit) {
    switch (unit) {
        case Unit::None:
            return "";
        case Unit::Percent:
            return "%";
        case Unit::Pixels:
            return "px";
        case Unit::WorkPixels:
            return "work px";
        case Unit::PixelsPerSecond:
            return "px/s";
        case Unit::Degrees:
            return "degrees";
        case Unit::Seconds:
            return "s";
        case Unit::Frames:
            return "frames";
    }
    return "";
}

}  // namespace ruvex
