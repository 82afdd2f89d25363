// The values of an instance's parameters, as changes of the effect.

#pragma once

#include <vector>

#include "adapters/common/picture_effect.h"
#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/host_parameter.h"
#include "adapters/openfx/parameter_list.h"

namespace ruvex::openfx {

/// Reads a set of parameters. A value that the host does not give, or that is not finite, is the
/// default; one out of range is held to the range that can be entered.
class ParameterValues {
public:
    explicit ParameterValues(const ParameterSet& set) : set_(set) {}

    /// A whole number: of an integer, a check box (0 or 1), or the index of a choice.
    int wholeAt(const DeclaredParameter& parameter, double hostTime) const;
    /// A value of any row, in the row's unit; the default of one that is not declared.
    double valueAt(ParameterId id, double hostTime) const;

    adapters::ResultAlpha resultAlphaAt(double hostTime) const;
    /// The effect's frame 0 in frames of the host.
    int firstFrameAt(double hostTime) const;
    /// Of the frame that lengths refer to; 0 for the picture's.
    int frameWidthAt(double hostTime) const;
    int frameHeightAt(double hostTime) const;

    /// Every parameter that pictures depend on: its value at the time, or, for a real or colour
    /// that changes with time, the curve from the effect's frame 0 on, or from that of the time if
    /// it is earlier, up to the time.
    std::vector<looks::ParameterChange> changesAt(double hostTime, const EffectClock& clock) const;

private:
    ParameterSet set_;
};

}  // namespace ruvex::openfx
