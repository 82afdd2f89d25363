// The names of the parameters in code.

#pragma once

#include <cstddef>

namespace ruvex {

/// One enumerator a parameter, in the order of the table: the effect's own in the order of its
/// members, the crop in the order of its map, then the host's four channel masks. The order is
/// part of the property map that documents were saved with, so new ones go before `Count` only.
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
