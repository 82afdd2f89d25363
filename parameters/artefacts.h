// The faults of the television that grow with the signal level.

#pragma once

#include <span>
#include <string_view>

#include "parameters/parameter_row.h"
#include "parameters/ruvex_interface.h"

namespace ruvex {

/// One fault that has a threshold: nothing of it is seen up to there, and at a level of 1 it is at
/// its maximum. Rows and the texts that they point at are constants.
struct Artefact {
    std::string_view id;          ///< "snow": one word, for headings and names in files
    std::string_view name;        ///< "Creeping lines", for people
    std::string_view amountName;  ///< "line_speed": what its amount is called in CSV
    ParameterId maximum;          ///< a real: the amount at a level of 1
    ParameterId threshold;        ///< a real, in percent
    /// Unit of the amount: None for a fraction of 1 (its maximum is in percent), otherwise the
    /// maximum's own unit.
    Unit unit;
    double FrameValues::*amount;  ///< where a frame's amount is found
    std::string_view plotColour;  ///< "#rrggbb", told apart from all others on white

    constexpr bool isFraction() const { return unit == Unit::None; }
};

/// All of them, in the order of the amounts in FrameValues.
std::span<const Artefact> artefacts();

/// The artefact with that identifier; null where there is none.
const Artefact* findArtefact(std::string_view id);

}  // namespace ruvex
