#include "parameters/presets.h"

#include <cmath>
#include <limits>

#include "parameters/label_match.h"

namespace ruvex {
namespace {

constexpr std::string_view kNames[kPresetCount] = {
    "Good TV",         "Bad Colour TV", "Bad B&W TV",  "Offset Guns",
    "Security Camera", "Aerial SpyCam", "NightVision", "Cable Out"};

constexpr std::string_view kDescriptions[kPresetCount] = {
    "a perfect picture; sets the parameters of the television and its effects back",
    "colour set with a bad aerial: snow, six ghosts, tearing and false colours that come and go",
    "grey set with a steady bad signal: frayed edges, ghosts and creeping lines",
    "electron guns out of line: red to the right, green above",
    "grey and soft, 8 frames repeated, scanlines, fish eye lens",
    "blue-grey tint, hard contrast, wide scanlines, every frame shown twice",
    "bright green tint, every frame shown twice",
    "no signal at all: noise of changing kinds",
};

// The preset leaves the parameter as it is.
constexpr double kKept = std::numeric_limits<double>::quiet_NaN();

// A preset sets all parameters of a look, even those with default values, and its own radius of the
// fish eye and seed. No preset sets Border Alpha and the crop. Only the two presets of a tinted
// television set the tint.
constexpr PresetRow kTable[] = {
    {ParameterId::TvType, {0, 0, 1, 0, 1, 2, 2, 0}},
    {ParameterId::Seed, {7, 7, 20, 7, 30, 30, 30, 7}},
    {ParameterId::TvContrast, {0, 0, 0, 0, 15, 25, 10, 0}},
    {ParameterId::TvBrightness, {0, 0, 0, 0, 25, 20, 10, 0}},
    {ParameterId::TvColour, {100, 100, 100, 100, 100, 100, 100, 100}},
    {ParameterId::TvBrightnessRed, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::TvBrightnessGreen, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::TvBrightnessBlue, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::TintColourR, {kKept, kKept, kKept, kKept, kKept, 22.5, 24, kKept}},
    {ParameterId::TintColourG, {kKept, kKept, kKept, kKept, kKept, 44.5, 64.5, kKept}},
    {ParameterId::TintColourB, {kKept, kKept, kKept, kKept, kKept, 54.5, 30, kKept}},
    {ParameterId::GunAlignRedX, {0, 0, 0, 10, 0, 0, 0, 0}},
    {ParameterId::GunAlignRedY, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::GunAlignGreenX, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::GunAlignGreenY, {0, 0, 0, 20, 0, 0, 0, 0}},
    {ParameterId::GunAlignBlueX, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::GunAlignBlueY, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::ColourDegradeMax, {100, 100, 0, 100, 0, 0, 0, 100}},
    {ParameterId::ColourThreshold, {100, 50, 100, 100, 100, 100, 100, 100}},
    {ParameterId::NumGhosts, {0, 6, 4, 0, 0, 0, 0, 0}},
    {ParameterId::GhostingThreshold, {100, 40, 40, 100, 100, 100, 100, 100}},
    {ParameterId::GhostingDistanceMax, {100, 100, 200, 100, 0, 0, 0, 100}},
    {ParameterId::GhostingStrength, {100, 100, 100, 100, 0, 0, 0, 100}},
    {ParameterId::GhostingSpeed, {10, 10, 50, 10, 0, 0, 0, 10}},
    {ParameterId::EdgeDistortionMax, {0, 300, 200, 0, 0, 0, 0, 0}},
    {ParameterId::EdgeJaggedness, {1, 1, 70, 1, 0, 0, 0, 1}},
    {ParameterId::EdgeThreshold, {100, 50, 50, 100, 100, 100, 100, 100}},
    {ParameterId::EdgeSpeed, {20, 20, 20, 20, 0, 0, 0, 20}},
    {ParameterId::SnowMax, {0, 60, 40, 0, 0, 0, 0, 0}},
    {ParameterId::SnowThreshold, {100, 0, 0, 100, 100, 100, 100, 100}},
    {ParameterId::SnowSoftness, {3, 3, 0, 3, 0, 0, 0, 3}},
    {ParameterId::SnowSparseness, {15, 15, 10, 15, 0, 0, 0, 15}},
    {ParameterId::LineAngle, {160, 160, 10, 160, 10, 10, 10, 160}},
    {ParameterId::LineSpacing, {50, 50, 20, 50, 50, 50, 50, 50}},
    {ParameterId::LineSpeedMax, {100, 100, 20, 100, 10, 10, 10, 100}},
    {ParameterId::LineThreshold, {100, 70, 50, 100, 100, 100, 100, 100}},
    {ParameterId::VertOffsetMax, {50, 50, 100, 50, 0, 0, 0, 50}},
    {ParameterId::VertOffsetThreshold, {100, 80, 80, 100, 100, 100, 100, 100}},
    {ParameterId::VertRollSpeedMax, {50, 50, 50, 50, 0, 0, 0, 50}},
    {ParameterId::VertRollThreshold, {100, 90, 90, 100, 100, 100, 100, 100}},
    {ParameterId::MasterBreakup, {0, 50, 70, 0, 0, 0, 0, 100}},
    {ParameterId::BreakupVariation, {0, 200, 0, 0, 0, 0, 0, 0}},
    {ParameterId::BreakupSpeed, {10, 10, 10, 10, 0, 0, 0, 10}},
    {ParameterId::ScanlineWidth, {0, 0, 0, 0, 3, 4, 0, 0}},
    {ParameterId::PlayMode, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::PlaySpeed, {100, 100, 100, 100, 100, 100, 100, 100}},
    {ParameterId::EmInterference, {0, 0, 0, 0, 15, 0, 0, 0}},
    {ParameterId::WhiteDot, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::Resolution, {100, 100, 100, 100, 100, 100, 100, 100}},
    {ParameterId::Blur, {0, 0, 0, 0, 1, 0, 0, 0}},
    {ParameterId::RepeatFrames, {1, 1, 1, 1, 8, 2, 2, 1}},
    {ParameterId::FishEye, {0, 0, 0, 0, 1, 0, 0, 0}},
    {ParameterId::FishEyeRadius, {450, 450, 450, 450, 450, 450, 450, 450}},
    {ParameterId::FishEyePower, {40, 40, 40, 40, 40, 40, 40, 40}},
    {ParameterId::Filter, {0, 0, 0, 0, 0, 0, 0, 0}},
    {ParameterId::ShashType, {5, 5, 5, 5, 5, 5, 5, 5}},
    {ParameterId::ShashPeriod, {0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5}},
    {ParameterId::ShashThreshold, {100, 99, 99, 100, 99, 99, 99, 0}},
    {ParameterId::ShashAmountMax, {0, 100, 100, 0, 100, 100, 100, 100}},
};

}  // namespace

std::optional<double> PresetRow::value(int preset) const {
    const double value = values[preset];
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

std::span<const std::string_view> presetNames() {
    return kNames;
}

std::span<const std::string_view> presetDescriptions() {
    return kDescriptions;
}

std::span<const PresetRow> presetTable() {
    return kTable;
}

std::optional<int> findPreset(std::string_view name) {
    for (int i = 0; i < kPresetCount; ++i) {
        if (labelsMatch(kNames[i], name)) return i;
    }
    return std::nullopt;
}

}  // namespace ruvex
