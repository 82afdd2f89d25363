// What the television is told about one frame.

#pragma once

#include <cstdint>

namespace ruvex {

class VxGradientNoise;

/// Plain values, filled in once a frame. Lengths are pixels of the work size, amounts and
/// thresholds fractions, unless something else is said.
struct SignalParameters {
    std::int32_t tvType = 0;  ///< 0 colour, 1 black and white, 2 tint
    std::int32_t seed = 0;
    std::int32_t sourceFrame = 0;  ///< before frames are repeated
    std::int32_t outputFrame = 0;
    float scale = 0.0f;  ///< work pixels for a pixel of the project frame, on the mean
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
    float tint[4] = {};  ///< red, green, blue in stored units; the fourth means nothing
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

    std::int32_t dvdMode = 0;    ///< 0 video, 1 DVD
    std::int32_t playState = 0;  ///< 0 winding, 1 slow or paused, 2 normal play
    std::int32_t framesAtLowSpeed = 0;
    float playSpeedAtStart = 0.0f;  ///< 1 is normal
    std::int32_t sourceFrameIndex = 0;
    float emInterference = 0.0f;

    float whiteDot = 0.0f;
    float whiteDotSoftness = 0.0f;

    std::int32_t verticalOffset = 0;
    float verticalRollSpeed = 0.0f;  ///< pixels per second

    float gunRedX = 0.0f, gunRedY = 0.0f;
    float gunGreenX = 0.0f, gunGreenY = 0.0f;
    float gunBlueX = 0.0f, gunBlueY = 0.0f;

    std::int32_t shashType = 0;
    std::int32_t shashPeriod = 0;  ///< frames
    float shashThreshold = 0.0f;
    float shashAmountMax = 0.0f;
    std::int32_t shashFramesOn = 0;

    std::int32_t borderAlpha = 0;  ///< 0 none, 1 full, 2 banded
    const VxGradientNoise* noiseTable = nullptr;
};

}  // namespace ruvex
