// Values of the host, held to what the effect takes.

#pragma once

#include <optional>

#include "adapters/openfx/host_parameter.h"
#include "adapters/openfx/parameter_list.h"

namespace ruvex::openfx {

/// A real, or a channel of a colour in percent, held to the range that can be entered; the default
/// if there is none, or if it is not finite.
double heldReal(const ParameterRow& row, std::optional<double> value);

/// A whole number, held likewise. A check box is 0 or 1; a choice that does not exist is the
/// default.
int heldWhole(const DeclaredParameter& parameter, std::optional<int> value);

/// A channel (0 red, 1 green, 2 blue) of a colour as a percentage.
std::optional<double> channelValue(const std::optional<HostColour>& colour, int channel);

/// A percentage without the error of a host that keeps colours as floats: 0.65f is to be 65 %.
double roundedPercent(double percent);

}  // namespace ruvex::openfx
