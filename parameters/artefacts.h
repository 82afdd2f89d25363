// The faults of the television that grow with the signal level.

#pragma once

#include <span>
#include <string_view>

#include "parameters/parameter_row.h"
#include "parameters/ruvex_interface.h"

namespace ruvex {

/// One fault with a threshold: up to the threshold it has no effect, and at a level of 1 it has its
/// maximum. Rows and their texts are constants.
struct Artefact {
    std::string_view id;          ///< "snow": one word, for headings and names in files
    std::string_view name;        ///< "Creeping lines", for people
    std::string_view amountName;  ///< "line_speed": what its amount is called in CSV
    ParameterId maximum;          ///< a real: the amount at a level of 1
    ParameterId threshold;        ///< a real, in percent
    /// Unit of the amount: None for a fraction of 1 (its maximum is in percent), otherwise the
    /// maximum's own unit.
    Unit unit;
    double FrameValues::*amount;  ///< the member with a frame's amount
    std::string_view plotColour;  ///< "#rrggbb", told apart from all others on white

    constexpr bool isFraction() const { return unit == Unit::None; }
};

/// All artefacts, in the order of the amounts in FrameValues.
std::span<const Artefact> artefacts();

/// The artefact with this identifier; null if there is none.
const Artefact* findArtefact(std::string_view id);

}  // namespace ruvex
