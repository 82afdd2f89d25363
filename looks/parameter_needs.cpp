#include "looks/parameter_needs.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "files/words.h"
#include "looks/play_speed.h"
#include "parameters/parameter_text.h"

namespace ruvex::looks {
namespace {

using Id = ParameterId;
using Kind = Need::Kind;

// Stored numbers of choices.
constexpr double kColourTv = 0;
constexpr double kTintTv = 2;
constexpr double kRandomShash = 5;
constexpr double kColourEdge = 0;

constexpr double kOff = 0;
constexpr double kOn = 1;
/// A fish eye of less power is not applied.
constexpr double kLeastFishEye = 0.1;

constexpr Need notZero(Id of) {
    return {Kind::NotZero, of};
}
constexpr Need is(Id of, double value) {
    return {Kind::Is, of, value};
}
constexpr Need levelExceeds(Id threshold) {
    return {Kind::LevelExceeds, threshold};
}

// The parameters of one part of the effect, and what all of them need. A parameter's own value does
// not count.

constexpr Need kColourLossNeeds[] = {is(Id::TvType, kColourTv), notZero(Id::ColourDegradeMax),
                                     levelExceeds(Id::ColourThreshold)};
constexpr Id kColourLoss[] = {Id::ColourDegradeMax, Id::ColourThreshold};

// Ghosting Strength is not among them: even without strength, ghosts have the picture read from its
// padded copy, whose border can differ.
constexpr Need kGhostNeeds[] = {notZero(Id::NumGhosts), levelExceeds(Id::GhostingThreshold)};
constexpr Id kGhosts[] = {Id::NumGhosts, Id::GhostingThreshold, Id::GhostingDistanceMax,
                          Id::GhostingStrength, Id::GhostingSpeed};

constexpr Need kEdgeNeeds[] = {notZero(Id::EdgeDistortionMax), levelExceeds(Id::EdgeThreshold)};
constexpr Id kEdge[] = {Id::EdgeDistortionMax, Id::EdgeJaggedness, Id::EdgeThreshold,
                        Id::EdgeSpeed};

constexpr Need kSnowNeeds[] = {notZero(Id::SnowMax), levelExceeds(Id::SnowThreshold)};
constexpr Id kSnow[] = {Id::SnowMax, Id::SnowThreshold, Id::SnowSoftness, Id::SnowSparseness};

constexpr Need kShashNeeds[] = {notZero(Id::ShashAmountMax), levelExceeds(Id::ShashThreshold)};
constexpr Id kShash[] = {Id::ShashType, Id::ShashPeriod, Id::ShashAmountMax, Id::ShashThreshold};

// Lines appear above their threshold even if they do not move.
constexpr Need kLineNeeds[] = {levelExceeds(Id::LineThreshold)};
constexpr Id kLines[] = {Id::LineAngle, Id::LineSpacing, Id::LineSpeedMax, Id::LineThreshold};

constexpr Need kOffsetNeeds[] = {notZero(Id::VertOffsetMax), levelExceeds(Id::VertOffsetThreshold)};
constexpr Id kOffset[] = {Id::VertOffsetMax, Id::VertOffsetThreshold};

constexpr Need kRollNeeds[] = {notZero(Id::VertRollSpeedMax), levelExceeds(Id::VertRollThreshold)};
constexpr Id kRoll[] = {Id::VertRollSpeedMax, Id::VertRollThreshold};

constexpr Need kLevelNeeds[] = {{Kind::SomeArtefact}};
constexpr Id kLevel[] = {Id::MasterBreakup, Id::BreakupVariation, Id::BreakupSpeed};

constexpr Need kVariationNeeds[] = {notZero(Id::BreakupVariation)};
constexpr Id kVariation[] = {Id::BreakupSpeed};

constexpr Need kGhostPlaceNeeds[] = {notZero(Id::GhostingStrength)};
constexpr Id kGhostPlace[] = {Id::GhostingDistanceMax, Id::GhostingSpeed};

constexpr Need kGhostSpeedNeeds[] = {notZero(Id::GhostingDistanceMax)};
constexpr Id kGhostSpeed[] = {Id::GhostingSpeed};

constexpr Need kShashPeriodNeeds[] = {is(Id::ShashType, kRandomShash)};
constexpr Id kShashPeriod[] = {Id::ShashPeriod};

constexpr Need kTintNeeds[] = {is(Id::TvType, kTintTv)};
constexpr Id kTint[] = {Id::TintColourR, Id::TintColourG, Id::TintColourB};

constexpr Need kGunNeeds[] = {is(Id::TvType, kColourTv)};
constexpr Id kGuns[] = {Id::TvColour,         Id::TvBrightnessRed, Id::TvBrightnessGreen,
                        Id::TvBrightnessBlue, Id::GunAlignRedX,    Id::GunAlignRedY,
                        Id::GunAlignGreenX,   Id::GunAlignGreenY,  Id::GunAlignBlueX,
                        Id::GunAlignBlueY};

constexpr Need kFishEyeNeeds[] = {is(Id::FishEye, kOn),
                                  {Kind::Beyond, Id::FishEyePower, kLeastFishEye}};
constexpr Id kFishEye[] = {Id::FishEye, Id::FishEyeRadius, Id::FishEyePower, Id::Filter};

constexpr Need kPlayModeNeeds[] = {{Kind::NotAlways, Id::PlaySpeed, kNormalPlaySpeed}};
constexpr Id kPlayMode[] = {Id::PlayMode};

constexpr Need kCropColourNeeds[] = {{Kind::ColouredEdges}};
constexpr Id kCropColour[] = {Id::CropColourR, Id::CropColourG, Id::CropColourB};

constexpr Need kBlankNeeds[] = {{Kind::Cropped}};
constexpr Id kBlank[] = {Id::BlankCropped};

struct Group {
    std::span<const Need> needs;
    std::span<const Id> parameters;
};

/// The artefacts, which the signal level shows.
constexpr Group kArtefactGroups[] = {{kColourLossNeeds, kColourLoss},
                                     {kGhostNeeds, kGhosts},
                                     {kEdgeNeeds, kEdge},
                                     {kSnowNeeds, kSnow},
                                     {kShashNeeds, kShash},
                                     {kLineNeeds, kLines},
                                     {kOffsetNeeds, kOffset},
                                     {kRollNeeds, kRoll}};

constexpr Group kOtherGroups[] = {{kLevelNeeds, kLevel},
                                  {kVariationNeeds, kVariation},
                                  {kGhostPlaceNeeds, kGhostPlace},
                                  {kGhostSpeedNeeds, kGhostSpeed},
                                  {kShashPeriodNeeds, kShashPeriod},
                                  {kTintNeeds, kTint},
                                  {kGunNeeds, kGuns},
                                  {kFishEyeNeeds, kFishEye},
                                  {kPlayModeNeeds, kPlayMode},
                                  {kCropColourNeeds, kCropColour},
                                  {kBlankNeeds, kBlank}};

/// Adds what a parameter needs as one of a group. A threshold of its own needs any level at all.
void addNeeds(const Group& group, Id id, std::vector<Need>& needs) {
    if (std::ranges::find(group.parameters, id) == group.parameters.end()) return;
    for (const Need& need : group.needs) {
        if (need.of != id) {
            needs.push_back(need);
        } else if (need.kind == Kind::LevelExceeds) {
            needs.push_back({Kind::SomeLevel});
        }
    }
}

/// Whether a level of 100 % would show the artefact.
bool canShow(const Group& group, const ValueRanges& values) {
    return std::ranges::all_of(group.needs, [&](const Need& need) {
        return need.kind == Kind::LevelExceeds ? values.of(need.of).low < 100.0
                                               : isMet(need, values);
    });
}

bool isCropped(const ValueRanges& values) {
    return !(values.always(Id::CropLeft, 0.0) && values.always(Id::CropRight, 100.0) &&
             values.always(Id::CropBottom, 0.0) && values.always(Id::CropTop, 100.0));
}

std::string quotedLabel(Id id) {
    return files::inQuotes(row(id).label);
}

std::string levelLack(const Need& need, const ValueRanges& values) {
    if (!(values.greatestLevel() > 0.0)) {
        return quotedLabel(Id::MasterBreakup) + " and " + quotedLabel(Id::BreakupVariation) +
               " are 0";
    }
    if (values.of(need.of).low >= 100.0) return quotedLabel(need.of) + " is 100";
    return quotedLabel(Id::MasterBreakup) + " is never above " + quotedLabel(need.of);
}

}  // namespace

std::vector<Need> needsOf(ParameterId id) {
    std::vector<Need> needs;
    // Display Cropped shows the input alone.
    const bool ofTheCrop = row(id).page == ParameterPage::Cropping;
    if (!ofTheCrop && row(id).rendered) needs.push_back(is(Id::DisplayCropped, kOff));
    for (const Group& group : kArtefactGroups) addNeeds(group, id, needs);
    for (const Group& group : kOtherGroups) addNeeds(group, id, needs);
    return needs;
}

bool isMet(const Need& need, const ValueRanges& values) {
    const auto greatest = [](Range range) {
        return std::max(std::fabs(range.low), std::fabs(range.high));
    };
    switch (need.kind) {
        case Kind::NotZero:
            return !values.always(need.of, 0.0);
        case Kind::Beyond:
            return greatest(values.of(need.of)) > need.value;
        case Kind::Is:
            return values.always(need.of, need.value);
        case Kind::NotAlways:
            return !values.always(need.of, need.value);
        case Kind::LevelExceeds:
            return values.levelExceeds(need.of);
        case Kind::SomeLevel:
            return values.greatestLevel() > 0.0;
        case Kind::SomeArtefact:
            return std::ranges::any_of(kArtefactGroups,
                                       [&](const Group& group) { return canShow(group, values); });
        case Kind::Cropped:
            return isCropped(values);
        case Kind::ColouredEdges:
            return values.always(Id::XEdgeMethod, kColourEdge) ||
                   values.always(Id::YEdgeMethod, kColourEdge);
    }
    return true;
}

std::string lackText(const Need& need, const ValueRanges& values) {
    const auto valueText = [&](double value) { return formatValue(row(need.of), value); };
    switch (need.kind) {
        case Kind::NotZero:
            return quotedLabel(need.of) + " is 0";
        case Kind::Beyond:
            return quotedLabel(need.of) + " is between -" + formatNumber(need.value) + " and " +
                   formatNumber(need.value);
        case Kind::Is:
            return isCheckBox(row(need.of).kind)
                       ? quotedLabel(need.of) + " is " + valueText(values.of(need.of).low)
                       : quotedLabel(need.of) + " is not " + valueText(need.value);
        case Kind::NotAlways:
            return quotedLabel(need.of) + " is " + valueText(need.value);
        case Kind::LevelExceeds:
        case Kind::SomeLevel:
            return levelLack(need, values);
        case Kind::SomeArtefact:
            return "no artefact acts at any level (each needs a maximum other than 0 and a "
                   "threshold below 100)";
        case Kind::Cropped:
            return "the crop is the whole picture";
        case Kind::ColouredEdges:
            return "neither " + quotedLabel(Id::XEdgeMethod) + " nor " +
                   quotedLabel(Id::YEdgeMethod) + " is " +
                   formatValue(row(Id::XEdgeMethod), kColourEdge);
    }
    return {};
}

std::string whyWithoutEffect(ParameterId id, const ValueRanges& values) {
    for (const Need& need : needsOf(id)) {
        if (isMet(need, values)) continue;
        return quotedLabel(id) + " has no effect: " + lackText(need, values) + ".";
    }
    return {};
}

}  // namespace ruvex::looks
