// Properties that do not fit.

#pragma once

#include "tests/openfx/attack/random_source.h"

namespace ruvex::ofxhost::attack {

/// Removes a random property of a set, gives it another type, another number of values or odd ones.
///
/// Left out is what no host can do: to say that there are pixels where there is no memory. So the
/// data of an image becomes null or stays; rows become shorter or lie upon each other; bounds
/// become smaller, move, or are absurd together with null data. Render windows stay or are missing,
/// since the test compares what was written with them.
void tamperWith(PropertySet& set, RandomSource& random);

}  // namespace ruvex::ofxhost::attack
