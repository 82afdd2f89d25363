// Which properties a parameter of each type has.

#pragma once

#include <string>

#include "tests/openfx/host/property_set.h"

namespace ruvex::ofxhost {

/// How many numbers a value of this type has; 0 for strings and types without a value.
std::size_t numberCount(const std::string& type);

/// Adds the properties of a descriptor with the standard's first values.
void addParameterProperties(PropertySet& set, const std::string& type, const std::string& name);

}  // namespace ruvex::ofxhost
