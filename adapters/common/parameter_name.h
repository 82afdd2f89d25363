// Names of parameters in hosts that want them short: lower case, with hyphens.

#pragma once

#include <string>
#include <string_view>

#include "parameters/parameter_row.h"

namespace ruvex::adapters {

/// The label in lower case with hyphens for spaces: "tv-type" for "TV Type". Such names need no
/// quotes on any host's command line.
std::string hyphenatedName(std::string_view label);

/// The label of a colour, made from that of its red channel: "Tint Colour" for "Tint Colour R".
std::string_view colourLabel(const ParameterRow& red);

/// Whether this is the red channel of a colour, which the green and the blue one follow in the
/// table.
bool beginsColour(const ParameterRow& row);

/// Whether this is a channel of a colour.
bool isColourChannel(const ParameterRow& row);

}  // namespace ruvex::adapters
