#include "adapters/frei0r/parameter_list.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "adapters/common/parameter_name.h"
#include "adapters/common/parameter_scale.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"

namespace ruvex::frei0r {
namespace {

using Id = ParameterId;

/// The rows in the order of the list: those of the first page, then each artefact with its
/// threshold, the picture, the player, the guns, and what an editor has tools of its own for. A
/// colour stands for its channels. tests/adapters has the names once more, as they were released.
constexpr Id kFirstRow[] = {Id::MasterBreakup};
constexpr Id kRows[] = {Id::BreakupVariation,
                        Id::BreakupSpeed,
                        Id::Seed,
                        Id::TvType,
                        Id::TintColourR,
                        Id::TvContrast,
                        Id::TvBrightness,
                        Id::TvColour,
                        Id::SnowMax,
                        Id::SnowThreshold,
                        Id::SnowSoftness,
                        Id::SnowSparseness,
                        Id::ColourDegradeMax,
                        Id::ColourThreshold,
                        Id::NumGhosts,
                        Id::GhostingThreshold,
                        Id::GhostingDistanceMax,
                        Id::GhostingStrength,
                        Id::GhostingSpeed,
                        Id::EdgeDistortionMax,
                        Id::EdgeJaggedness,
                        Id::EdgeThreshold,
                        Id::EdgeSpeed,
                        Id::LineAngle,
                        Id::LineSpacing,
                        Id::LineSpeedMax,
                        Id::LineThreshold,
                        Id::VertOffsetMax,
                        Id::VertOffsetThreshold,
                        Id::VertRollSpeedMax,
                        Id::VertRollThreshold,
                        Id::ShashType,
                        Id::ShashPeriod,
                        Id::ShashAmountMax,
                        Id::ShashThreshold,
                        Id::Resolution,
                        Id::Blur,
                        Id::ScanlineWidth,
                        Id::EmInterference,
                        Id::WhiteDot,
                        Id::FishEye,
                        Id::FishEyeRadius,
                        Id::FishEyePower,
                        Id::Filter,
                        Id::PlayMode,
                        Id::PlaySpeed,
                        Id::RepeatFrames,
                        Id::BorderAlpha,
                        Id::TvBrightnessRed,
                        Id::TvBrightnessGreen,
                        Id::TvBrightnessBlue,
                        Id::GunAlignRedX,
                        Id::GunAlignRedY,
                        Id::GunAlignGreenX,
                        Id::GunAlignGreenY,
                        Id::GunAlignBlueX,
                        Id::GunAlignBlueY,
                        Id::CropLeft,
                        Id::CropRight,
                        Id::CropBottom,
                        Id::CropTop,
                        Id::XEdgeMethod,
                        Id::YEdgeMethod,
                        Id::CropColourR,
                        Id::BlankCropped,
                        Id::DisplayCropped,
                        Id::MaskRed,
                        Id::MaskGreen,
                        Id::MaskBlue,
                        Id::MaskAlpha};

std::string withRange(const ParameterRow& row) {
    const Range range = *row.controlRange;
    const std::string unit(unitText(row.unit));
    const std::string space = unit.empty() ? "" : " ";
    return std::string(row.hint) + " 0 to 1 is " + formatNumber(range.low) + " to " +
           formatNumber(range.high) + space + unit +
           "; default: " + formatNumber(row.defaultValue) + space + unit + ".";
}

std::string withChoices(const ParameterRow& row) {
    return std::string(row.hint) + " " + allowedValues(row) +
           "; default: " + formatValue(row, row.defaultValue) + ".";
}

ListedParameter number(const ParameterRow& row) {
    return {adapters::hyphenatedName(row.label), ParameterType::Double, withRange(row),
            adapters::positionOf(row, row.defaultValue), &row};
}

ListedParameter choice(const ParameterRow& row) {
    return {adapters::hyphenatedName(row.label), ParameterType::String, withChoices(row),
            formatValue(row, row.defaultValue), &row};
}

ListedParameter yesOrNo(const ParameterRow& row) {
    return {adapters::hyphenatedName(row.label), ParameterType::Bool, std::string(row.hint),
            row.defaultValue, &row};
}

ListedParameter colour(const ParameterRow& red) {
    const auto channel = [&](int offset) {
        const auto id = static_cast<Id>(static_cast<int>(red.id) + offset);
        return static_cast<float>(row(id).defaultValue / 100.0);
    };
    return {adapters::hyphenatedName(adapters::colourLabel(red)), ParameterType::Colour,
            std::string(red.hint), Colour{channel(0), channel(1), channel(2)}, &red};
}

ListedParameter listed(Id id) {
    const ParameterRow& row = ruvex::row(id);
    if (adapters::beginsColour(row)) return colour(row);
    if (!row.choices.empty()) return choice(row);
    return row.controlRange ? number(row) : yesOrNo(row);
}

ListedParameter own(OwnParameter which, std::string name, ParameterType type, Value defaultValue,
                    std::string explanation) {
    return {std::move(name), type, std::move(explanation), std::move(defaultValue), nullptr, which};
}

ListedParameter text(OwnParameter which, std::string name, std::string defaultValue,
                     std::string explanation) {
    return own(which, std::move(name), ParameterType::String, std::move(defaultValue),
               std::move(explanation));
}

std::vector<ListedParameter> makeList() {
    std::vector<ListedParameter> all;
    const auto addRows = [&](std::span<const Id> ids) {
        std::ranges::transform(ids, std::back_inserter(all), listed);
    };
    all.push_back(text(OwnParameter::Look, "look", "none",
                       "A look by its name, as 'ruvex presets' lists them, or a look file by its "
                       "path; default: none. Parameters that differ from their defaults are set "
                       "over it."));
    addRows(kFirstRow);
    all.push_back(text(OwnParameter::Fps, "fps", "25",
                       "Frames per second of the clip: 25, 29.97, 30000/1001; default: 25. frei0r "
                       "does not tell it to effects."));
    all.push_back(own(OwnParameter::EffectAlpha, "effect-alpha", ParameterType::Bool, 0.0,
                      "The result has the effect's alpha, which makes parts of a picture "
                      "transparent, instead of the input's; default: off."));
    addRows(kRows);
    all.push_back(text(OwnParameter::TimeUnit, "time-unit", "auto",
                       "The unit of the host's times: auto, seconds or milliseconds; default: "
                       "auto."));
    all.push_back(text(OwnParameter::LookFile, "look-file", "",
                       "A look file by its path. It is used instead of 'look' if it is not "
                       "empty."));
    all.push_back(text(OwnParameter::Override, "override", "none",
                       "Parameters that are set over the look even at their defaults: names "
                       "separated by commas, all or none; default: none."));
    return all;
}

}  // namespace

std::span<const ListedParameter> parameterList() {
    static const std::vector<ListedParameter> all = makeList();
    return all;
}

}  // namespace ruvex::frei0r
