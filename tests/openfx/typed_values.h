// Values that are typed on the command lines of the test host's programs.

#pragma once

#include <string>
#include <vector>

#include "tests/openfx/host/instance.h"

namespace ruvex::ofxhost::test {

/// Throws std::runtime_error for what is no decimal number.
double numberOf(const std::string& text);

std::vector<std::string> splitAt(const std::string& text, char separator);

/// Sets a parameter as a user of the application does. The value is a number, the label of a
/// choice or its index, R,G,B of a colour, or keys as FRAME:NUMBER,FRAME:... Throws
/// std::runtime_error.
void setValue(Instance& instance, const std::string& name, const std::string& value);

}  // namespace ruvex::ofxhost::test
