// The parameters of the television for one frame.

#pragma once

#include <cstdint>

namespace ruvex {

class VxGradientNoise;

/// The enumerators have the numbers of the parameters' stored values. A stored value may be another
/// number; pictures depend on what each stage does with it.

enum class TvType : std::int32_t { Colour = 0, BlackAndWhite = 1, Tint = 2 };

/// The state of the tape, from its speed in percent.
enum class PlayState : std::int32_t {
    Winding = 0,  ///< |speed| >= 100, but not exactly 100
    Slow = 1,     ///< |speed| < 100; 0 is a pause
    Normal = 2,   ///< exactly 100
};

/// The alpha of the border around the picture.
enum class BorderAlpha : std::int32_t { None = 0, Full = 1, Banded = 2 };

/// The patterns of a television without a signal.
enum class ShashType : std::int32_t {
    Grain = 0,
    Bars = 1,
    Dashes = 2,
    Snow = 3,
    Streaks = 4,
    Random = 5,  ///< one of the five, chosen again after each period
};

/// Plain values, computed once per frame. Unless noted otherwise, lengths are in pixels of the work
/// size, and amounts and thresholds are fractions.
struct SignalParameters {
    TvType tvType = TvType::Colour;
    std::int32_t seed = 0;
    std::int32_t sourceFrame = 0;  ///< before frame repetition
    std::int32_t outputFrame = 0;
    float scale = 0.0f;  ///< work pixels for a pixel of the project frame, on the mean
    // Always 0: the picture begins at the origin of image space.
    std::int32_t originX = 0;
    std::int32_t originY = 0;
    float width = 0.0f;
    float height = 0.0f;
    float breakup = 0.0f;  ///< the signal level, 0 to 1

    float contrast = 0.0f;
    float brightness = 0.0f;
    float colour = 0.0f;
    float gunRed = 0.0f;
    float gunGreen = 0.0f;
    float gunBlue = 0.0f;
    float tint[4] = {};  ///< red, green, blue, raw values; the fourth is unused
    float colourDegradeMax = 0.0f;
    float colourThreshold = 0.0f;

    std::int32_t numGhosts = 0;
    float ghostThreshold = 0.0f;
    float ghostDistance = 0.0f;
    float ghostStrength = 0.0f;
    float ghostPhase = 0.0f;  ///< cycles

    float edgeDistortionMax = 0.0f;
    std::int32_t edgeOctaves = 0;
    float edgeThreshold = 0.0f;
    float edgeJaggedness = 0.0f;
    float edgePhase = 0.0f;  ///< cycles

    float snowMax = 0.0f;  ///< may be negative
    float snowThreshold = 0.0f;
    float snowSoftness = 0.0f;
    float snowSparseness = 0.0f;

    float lineAngle = 0.0f;  ///< radians, 0 to 2 pi and off the axes
    float lineSpacing = 0.0f;
    float lineOffset = 0.0f;
    float lineThreshold = 0.0f;

    bool dvdMode = false;  ///< a DVD player, without the faults of a tape
    PlayState playState = PlayState::Winding;
    std::int32_t framesAtLowSpeed = 0;
    float playSpeedAtStart = 0.0f;      ///< 1 is normal
    std::int32_t sourceFrameIndex = 0;  ///< The same number as sourceFrame, for the transport.
    float emInterference = 0.0f;

    float whiteDot = 0.0f;
    float whiteDotSoftness = 0.0f;

    std::int32_t verticalOffset = 0;
    float verticalRollSpeed = 0.0f;  ///< pixels per second; read by nothing here

    float gunRedX = 0.0f, gunRedY = 0.0f;
    float gunGreenX = 0.0f, gunGreenY = 0.0f;
    float gunBlueX = 0.0f, gunBlueY = 0.0f;

    ShashType shashType = ShashType::Grain;
    std::int32_t shashPeriod = 0;  ///< frames
    float shashThreshold = 0.0f;
    float shashAmountMax = 0.0f;
    std::int32_t shashFramesOn = 0;

    BorderAlpha borderAlpha = BorderAlpha::None;
    const VxGradientNoise* noiseTable = nullptr;
};

}  // namespace ruvex
