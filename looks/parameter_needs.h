// What a parameter needs from other parameters to change a picture.

#pragma once

#include <string>
#include <vector>

#include "looks/value_ranges.h"

namespace ruvex::looks {

/// One condition on the values of other parameters.
struct Need {
    enum class Kind {
        NotZero,        ///< `of` is not always 0.
        Beyond,         ///< The magnitude of `of` exceeds `value` at some time.
        Is,             ///< `of`, a choice or a check box, has `value`.
        NotAlways,      ///< `of` differs from `value` at some time.
        LevelExceeds,   ///< The signal level exceeds the threshold `of` at some time.
        SomeLevel,      ///< The signal level exceeds 0 at some time.
        SomeArtefact,   ///< There is an artefact that a level of 100 % would show.
        Cropped,        ///< The crop is smaller than the picture.
        ColouredEdges,  ///< X Edge Method or Y Edge Method is Colour.
    };
    Kind kind;
    ParameterId of = ParameterId::Count;  ///< Count for the last four kinds.
    double value = 0.0;
};

/// The needs of a parameter; none if it changes pictures whatever the others are. All of them have
/// to be met. They are sufficient for "no effect" if one is not met, but a parameter may be without
/// effect for other reasons too.
std::vector<Need> needsOf(ParameterId id);

/// Whether a need can be met at some time; true in cases of doubt.
bool isMet(const Need& need, const ValueRanges& values);

/// "'Snow Max' is 0": a need that is not met.
std::string lackText(const Need& need, const ValueRanges& values);

/// "'Snow Threshold' has no effect: 'Snow Max' is 0." if the parameter cannot change any picture;
/// empty otherwise.
std::string whyWithoutEffect(ParameterId id, const ValueRanges& values);

}  // namespace ruvex::looks
