// The names of the parameters in code.

#pragma once

#include <cstddef>

namespace ruvex {

/// One enumerator for each parameter, in the order of the table: the effect's own parameters, the
/// crop, then the host's four channel masks. Saved documents depend on this order, so add new ones
/// only directly before `Count`.
enum class ParameterId {
    TvType,
    Seed,
    TvContrast,
    TvBrightness,
    TvColour,
    TvBrightnessRed,
    TvBrightnessGreen,
    TvBrightnessBlue,
    GunAlignRedX,
    GunAlignRedY,
    GunAlignGreenX,
    GunAlignGreenY,
    GunAlignBlueX,
    GunAlignBlueY,
    ColourDegradeMax,
    ColourThreshold,
    NumGhosts,
    GhostingThreshold,
    GhostingDistanceMax,
    GhostingStrength,
    GhostingSpeed,
    EdgeDistortionMax,
    EdgeJaggedness,
    EdgeThreshold,
    EdgeSpeed,
    SnowMax,
    SnowThreshold,
    SnowSoftness,
    SnowSparseness,
    LineAngle,
    LineSpacing,
    LineSpeedMax,
    LineThreshold,
    VertOffsetMax,
    VertOffsetThreshold,
    VertRollSpeedMax,
    VertRollThreshold,
    MasterBreakup,
    BreakupVariation,
    BreakupSpeed,
    ScanlineWidth,
    PlayMode,
    PlaySpeed,
    EmInterference,
    WhiteDot,
    Resolution,
    Blur,
    RepeatFrames,
    BorderAlpha,
    FishEye,
    FishEyeRadius,
    FishEyePower,
    Filter,
    ShashType,
    ShashPeriod,
    ShashAmountMax,
    ShashThreshold,
    TintColourR,
    TintColourG,
    TintColourB,
    Presets,
    HideOverlayControls,

    CropLeft,
    CropRight,
    CropBottom,
    CropTop,
    XEdgeMethod,
    YEdgeMethod,
    CropColourR,
    CropColourG,
    CropColourB,
    CropColourA,
    BlankCropped,
    DisplayCropped,

    MaskRed,
    MaskGreen,
    MaskBlue,
    MaskAlpha,

    Count
};

inline constexpr std::size_t kParameterCount = static_cast<std::size_t>(ParameterId::Count);

}  // namespace ruvex
