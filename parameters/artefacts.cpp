#include "parameters/artefacts.h"

#include <algorithm>

#include "parameters/parameter_rows.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using V = FrameValues;

constexpr Artefact kArtefacts[] = {
    {"colour", "Colour loss", "colour_degrade", Id::ColourDegradeMax, Id::ColourThreshold,
     Unit::None, &V::colourDegrade, "#d62728"},
    {"ghosts", "Ghosts", "ghost_distance", Id::GhostingDistanceMax, Id::GhostingThreshold,
     Unit::Pixels, &V::ghostDistance, "#1f77b4"},
    {"edge", "Edge distortion", "edge_distortion", Id::EdgeDistortionMax, Id::EdgeThreshold,
     Unit::Pixels, &V::edgeDistortion, "#2ca02c"},
    {"snow", "Snow", "snow", Id::SnowMax, Id::SnowThreshold, Unit::None, &V::snow, "#7f7f7f"},
    {"shash", "Shash", "shash", Id::ShashAmountMax, Id::ShashThreshold, Unit::None, &V::shash,
     "#c2185b"},
    {"lines", "Creeping lines", "line_speed", Id::LineSpeedMax, Id::LineThreshold,
     Unit::PixelsPerSecond, &V::lineSpeed, "#9467bd"},
    {"offset", "Vertical offset", "vertical_offset", Id::VertOffsetMax, Id::VertOffsetThreshold,
     Unit::Pixels, &V::verticalOffset, "#c47a00"},
    {"roll", "Vertical roll", "roll_speed", Id::VertRollSpeedMax, Id::VertRollThreshold,
     Unit::PixelsPerSecond, &V::rollSpeed, "#0f9d9d"},
};

constexpr Unit unitOf(Id id) {
    return kParameterRows[static_cast<std::size_t>(id)].unit;
}

constexpr bool unitsFollowTheParameters() {
    return std::ranges::all_of(kArtefacts, [](const Artefact& artefact) {
        const Unit maximum = unitOf(artefact.maximum);
        return unitOf(artefact.threshold) == Unit::Percent &&
               artefact.unit == (maximum == Unit::Percent ? Unit::None : maximum);
    });
}
static_assert(unitsFollowTheParameters());

}  // namespace

std::span<const Artefact> artefacts() {
    return kArtefacts;
}

const Artefact* findArtefact(std::string_view id) {
    const auto found = std::ranges::find(kArtefacts, id, &Artefact::id);
    return found == std::end(kArtefacts) ? nullptr : found;
}

}  // namespace ruvex
