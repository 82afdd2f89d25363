// Names of parameters and groups in scripts, and labels of groups.

#pragma once

#include <string>
#include <string_view>

#include "parameters/parameter_row.h"

namespace ruvex::openfx {

/// A label in lower camel case, letters and digits alone: "xEdgeMethod" for "X Edge Method" and
/// "emInterference" for "EM Interference". Hosts store projects with these names.
std::string scriptName(std::string_view label);

/// The name of a row's parameter. The three channels of a colour are one parameter.
std::string scriptName(const ParameterRow& row);

/// The title of a page's group: "Main", "Guns", ..., "Host".
std::string_view groupLabel(ParameterPage page);
/// The name of that group: "mainGroup".
std::string groupName(ParameterPage page);
/// The name of a page's Reset button: "resetMain".
std::string resetName(ParameterPage page);

}  // namespace ruvex::openfx
