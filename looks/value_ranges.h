// The least and the greatest value of each parameter over all times.

#pragma once

#include <array>
#include <span>

#include "looks/parameter_change.h"

namespace ruvex::looks {

/// The ranges after some changes of the defaults. Values are clamped as the render clamps them. An
/// animation has its extreme values at its keys, whatever their modes.
class ValueRanges {
public:
    explicit ValueRanges(std::span<const ParameterChange> changes);

    Range of(ParameterId id) const { return ranges_[static_cast<std::size_t>(id)]; }

    /// Whether the parameter has this value at all times.
    bool always(ParameterId id, double value) const { return of(id) == Range{value, value}; }

    /// The greatest signal level of any frame, in percent: Master Breakup, or 100 if Breakup
    /// Variation can raise it.
    double greatestLevel() const;

    /// Whether the signal level can exceed a threshold that is below 100 %; true in cases of doubt.
    bool levelExceeds(ParameterId threshold) const;

private:
    std::array<Range, kParameterCount> ranges_;
};

}  // namespace ruvex::looks
