// The state of OpenGL as numbers, to compare before and after.

#pragma once

#include <map>
#include <vector>

#include "sdk/open_gl/open_gl.h"

namespace ruvex::test {

/// The values of each state of OpenGL 1.1 that drawing may change, by its name.
using OpenGlState = std::map<GLenum, std::vector<double>>;

/// Reads the state of the context that is current.
OpenGlState readState();

/// One state: all its values.
std::vector<double> readState(GLenum name, std::size_t values);
/// The same for a state of one value.
double readNumber(GLenum name);

/// Gives states of every kind values that are not OpenGL's defaults, as a host may have them.
void setUnusualState();

}  // namespace ruvex::test
