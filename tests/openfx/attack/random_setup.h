// Random instances, values, keys and renders, hostile now and then.

#pragma once

#include <vector>

#include "tests/openfx/attack/random_source.h"
#include "tests/openfx/host/instance.h"

namespace ruvex::ofxhost::attack {

/// Sides of pictures, in pixels.
inline constexpr int kLongestSide = 20;

/// The usual value, or an odd one in one of ten cases.
double usualOr(double usual, RandomSource& random);

/// A clip of noise in a project, with any form of pixels. What the host says about regions, rates
/// and aspects is sometimes absurd; what it says about memory is true.
InstanceSetup randomSetup(RandomSource& random);

/// `count` numbers, mostly from -10 to 110.
std::vector<double> randomNumbers(std::size_t count, RandomSource& random);
/// One to six keys of any shape.
std::vector<Key> randomKeys(std::size_t count, RandomSource& random);

/// Frames from -5 to 60, between frames too; rarely an odd number.
double randomTime(RandomSource& random);

/// A render of any window into a picture with any bounds.
RenderArgs randomRender(RandomSource& random);

}  // namespace ruvex::ofxhost::attack
