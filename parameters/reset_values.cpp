#include "parameters/reset_values.h"

namespace ruvex {
namespace {

using Id = ParameterId;

// These are not the defaults of the parameters, although most are the same number: what Reset sets
// and what a new effect begins with are changed independently.

constexpr ParameterValue kMainReset[] = {
    {Id::TvType, 0},
    {Id::Seed, 5},
    {Id::TvContrast, 0},
    {Id::TvBrightness, 0},
    {Id::TvColour, 100},
    {Id::MasterBreakup, 50},
    {Id::BreakupVariation, 100},
    {Id::BreakupSpeed, 50},
    {Id::Presets, 0},
    {Id::TintColourR, 25},
    {Id::TintColourG, 65},
    {Id::TintColourB, 30},
};

constexpr ParameterValue kGunsReset[] = {
    {Id::TvBrightnessRed, 0}, {Id::TvBrightnessGreen, 0}, {Id::TvBrightnessBlue, 0},
    {Id::GunAlignRedX, 0},    {Id::GunAlignRedY, 0},      {Id::GunAlignGreenX, 0},
    {Id::GunAlignGreenY, 0},  {Id::GunAlignBlueX, 0},     {Id::GunAlignBlueY, 0},
};

constexpr ParameterValue kBreakup1Reset[] = {
    {Id::ColourDegradeMax, 100}, {Id::ColourThreshold, 50},   {Id::SnowMax, 60},
    {Id::SnowThreshold, 0},      {Id::SnowSoftness, 3},       {Id::SnowSparseness, 15},
    {Id::NumGhosts, 2},          {Id::GhostingThreshold, 20}, {Id::GhostingDistanceMax, 50},
    {Id::GhostingStrength, 100}, {Id::GhostingSpeed, 50},
};

constexpr ParameterValue kBreakup2Reset[] = {
    {Id::EdgeDistortionMax, 100},  {Id::EdgeJaggedness, 1},      {Id::EdgeThreshold, 40},
    {Id::EdgeSpeed, 50},           {Id::LineAngle, 10},          {Id::LineSpacing, 50},
    {Id::LineSpeedMax, 100},       {Id::LineThreshold, 50},      {Id::VertOffsetMax, 200},
    {Id::VertOffsetThreshold, 80}, {Id::VertRollSpeedMax, 1000}, {Id::VertRollThreshold, 90},
};

constexpr ParameterValue kShashReset[] = {
    {Id::ShashType, 5},
    {Id::ShashPeriod, 0.5},
    {Id::ShashAmountMax, 100},
    {Id::ShashThreshold, 99},
};

constexpr ParameterValue kEffectsReset[] = {
    {Id::ScanlineWidth, 0}, {Id::PlayMode, 0},
    {Id::PlaySpeed, 100},   {Id::EmInterference, 0},
    {Id::WhiteDot, 0},      {Id::Resolution, 100},
    {Id::Blur, 0},          {Id::RepeatFrames, 1},
    {Id::FishEye, 0},       {Id::FishEyeRadius, 400},
    {Id::FishEyePower, 40}, {Id::Filter, 0},
    {Id::BorderAlpha, 0},
};

constexpr ParameterValue kCroppingReset[] = {
    {Id::CropLeft, 0},    {Id::CropRight, 100}, {Id::CropBottom, 0},     {Id::CropTop, 100},
    {Id::XEdgeMethod, 2}, {Id::YEdgeMethod, 2}, {Id::CropColourR, 0},    {Id::CropColourG, 0},
    {Id::CropColourB, 0}, {Id::CropColourA, 0}, {Id::DisplayCropped, 0}, {Id::BlankCropped, 0},
};

}  // namespace

std::span<const ParameterValue> resetValues(ParameterPage page) {
    switch (page) {
        case ParameterPage::Main:
            return kMainReset;
        case ParameterPage::Guns:
            return kGunsReset;
        case ParameterPage::Breakup1:
            return kBreakup1Reset;
        case ParameterPage::Breakup2:
            return kBreakup2Reset;
        case ParameterPage::Shash:
            return kShashReset;
        case ParameterPage::Effects:
            return kEffectsReset;
        case ParameterPage::Cropping:
            return kCroppingReset;
        case ParameterPage::Help:
        case ParameterPage::Host:
            break;
    }
    return {};
}

}  // namespace ruvex
