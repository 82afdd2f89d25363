#include "effect/signal_fill.h"

#include "effect/frame_integral.h"
#include "imaging/noise/gradient_noise.h"
#include "imaging/pixel_convert.h"

namespace ruvex {
namespace {

constexpr std::int32_t kEdgeOctaves = 8;
constexpr float kWhiteDotSoftness = 0.05f;
constexpr double kWholePercent = 100.0;

float single(double value) {
    return static_cast<float>(value);
}

// The stored number as a type of television; an unknown number is a colour television.
TvType tvType(std::int32_t stored) {
    const TvType type{stored};
    return type == TvType::BlackAndWhite || type == TvType::Tint ? type : TvType::Colour;
}

void fillIdentity(SignalParameters& signal, const FrameState& frame) {
    const FrameScale& scale = frame.scale;
    signal.tvType = tvType(frame.parameters.integer(ParameterId::TvType));
    signal.seed = frame.parameters.integer(ParameterId::Seed);
    signal.sourceFrame = frame.tape.sourceFrame;
    signal.outputFrame = truncateToInt(frame.time.frame);
    signal.scale = frame.res() * scale.scaleMean;
    signal.width = frame.res() * scale.pixelsX;
    signal.height = frame.res() * scale.pixelsY;
    signal.breakup = frame.signal.breakup;
    signal.borderAlpha = BorderAlpha{frame.parameters.integer(ParameterId::BorderAlpha)};
    signal.noiseTable = &noiseTable();
}

void fillTube(SignalParameters& signal, const FrameState& frame, float white) {
    const FrameParameters& p = frame.parameters;
    signal.contrast = p.fraction(ParameterId::TvContrast);
    signal.brightness = p.fraction(ParameterId::TvBrightness);
    signal.colour = p.fraction(ParameterId::TvColour);
    signal.gunRed = p.fraction(ParameterId::TvBrightnessRed);
    signal.gunGreen = p.fraction(ParameterId::TvBrightnessGreen);
    signal.gunBlue = p.fraction(ParameterId::TvBrightnessBlue);
    const auto tint = [&](ParameterId id) { return single(p.real(id) / kWholePercent * white); };
    signal.tint[0] = tint(ParameterId::TintColourR);
    signal.tint[1] = tint(ParameterId::TintColourG);
    signal.tint[2] = tint(ParameterId::TintColourB);
    signal.colourDegradeMax = p.fraction(ParameterId::ColourDegradeMax);
    signal.colourThreshold = p.fraction(ParameterId::ColourThreshold);
    signal.whiteDot = p.fraction(ParameterId::WhiteDot);
    signal.whiteDotSoftness = kWhiteDotSoftness;
}

void fillGuns(SignalParameters& signal, const FrameState& frame) {
    const auto across = [&](ParameterId id) {
        return single(frame.res() * frame.parameters.real(id) * frame.scale.scaleX);
    };
    const auto down = [&](ParameterId id) {
        return single(frame.res() * frame.parameters.real(id) * frame.scale.scaleY);
    };
    signal.gunRedX = across(ParameterId::GunAlignRedX);
    signal.gunGreenX = across(ParameterId::GunAlignGreenX);
    signal.gunBlueX = across(ParameterId::GunAlignBlueX);
    signal.gunRedY = down(ParameterId::GunAlignRedY);
    signal.gunGreenY = down(ParameterId::GunAlignGreenY);
    signal.gunBlueY = down(ParameterId::GunAlignBlueY);
}

// The number of cycles of an oscillation so far. It follows the play time, and so stops with the
// tape.
float phaseOf(const FrameState& frame, ParameterId speed) {
    return fractionOf(integrateParameter(frame.reader.curve(speed), frame.time.hostRate, 0.0,
                                         frame.tape.playTime));
}

void fillGhosts(SignalParameters& signal, const FrameState& frame) {
    const FrameParameters& p = frame.parameters;
    signal.numGhosts = p.integer(ParameterId::NumGhosts);
    signal.ghostThreshold = p.fraction(ParameterId::GhostingThreshold);
    signal.ghostDistance =
        single(frame.res() * p.real(ParameterId::GhostingDistanceMax) * frame.scale.scaleX);
    signal.ghostStrength = p.fraction(ParameterId::GhostingStrength);
    signal.ghostPhase = phaseOf(frame, ParameterId::GhostingSpeed);
}

void fillEdge(SignalParameters& signal, const FrameState& frame) {
    const FrameParameters& p = frame.parameters;
    signal.edgeDistortionMax =
        single(frame.res() * p.real(ParameterId::EdgeDistortionMax) * frame.scale.scaleX);
    signal.edgeOctaves = kEdgeOctaves;
    signal.edgeThreshold = p.fraction(ParameterId::EdgeThreshold);
    signal.edgeJaggedness = single(p.real(ParameterId::EdgeJaggedness));
    signal.edgePhase = phaseOf(frame, ParameterId::EdgeSpeed);
}

void fillSnow(SignalParameters& signal, const FrameState& frame) {
    const FrameParameters& p = frame.parameters;
    signal.snowMax = p.fraction(ParameterId::SnowMax);
    signal.snowThreshold = p.fraction(ParameterId::SnowThreshold);
    signal.snowSoftness = single(frame.res() * p.real(ParameterId::SnowSoftness));
    signal.snowSparseness = p.fraction(ParameterId::SnowSparseness);
}

void fillLines(SignalParameters& signal, const FrameState& frame) {
    const FrameParameters& p = frame.parameters;
    const FrameScale& scale = frame.scale;
    signal.lineAngle = lineAngleRadians(p.real(ParameterId::LineAngle));
    signal.lineSpacing = single(frame.res() * p.real(ParameterId::LineSpacing) * scale.scaleX);
    signal.lineOffset = single(frame.signal.walks.lineSum * (frame.res() * scale.scaleX));
    signal.lineThreshold = p.fraction(ParameterId::LineThreshold);
}

void fillPlay(SignalParameters& signal, const FrameState& frame) {
    signal.dvdMode = frame.parameters.integer(ParameterId::PlayMode) != 0;
    signal.playState = frame.play.state;
    signal.framesAtLowSpeed = frame.play.framesAtLowSpeed;
    signal.playSpeedAtStart = frame.play.speedAtStart;
    signal.sourceFrameIndex = frame.tape.sourceFrame;
    signal.emInterference = frame.parameters.fraction(ParameterId::EmInterference);
}

void fillVertical(SignalParameters& signal, const FrameState& frame) {
    const FrameScale& scale = frame.scale;
    signal.verticalOffset = truncateToInt(static_cast<float>(frame.signal.walks.verticalSum) *
                                          frame.res() * scale.scaleY);
    signal.verticalRollSpeed =
        single(frame.res() * frame.parameters.real(ParameterId::VertRollSpeedMax) * scale.scaleY);
}

void fillShash(SignalParameters& signal, const FrameState& frame) {
    const FrameParameters& p = frame.parameters;
    signal.shashType = ShashType{p.integer(ParameterId::ShashType)};
    signal.shashPeriod = truncateToInt(frame.time.singleRate * p.real(ParameterId::ShashPeriod));
    signal.shashThreshold = p.fraction(ParameterId::ShashThreshold);
    signal.shashAmountMax = p.fraction(ParameterId::ShashAmountMax);
    signal.shashFramesOn = frame.signal.walks.shashFramesOn;
}

}  // namespace

SignalParameters signalParameters(const FrameState& frame, float white) {
    SignalParameters signal;
    fillIdentity(signal, frame);
    fillTube(signal, frame, white);
    fillGuns(signal, frame);
    fillGhosts(signal, frame);
    fillEdge(signal, frame);
    fillSnow(signal, frame);
    fillLines(signal, frame);
    fillPlay(signal, frame);
    fillVertical(signal, frame);
    fillShash(signal, frame);
    return signal;
}

float lineAngleRadians(double degrees) {
    constexpr std::int32_t kTurn = 360;
    std::int32_t whole = truncateToInt(degrees) % kTurn;
    if (whole < 0) whole += kTurn;
    switch (whole) {
        case 0:
            return 0.0008726647f;
        case 90:
            return 1.571669f;
        case 180:
            return 3.1424656f;
        case 270:
            return 4.7132616f;
        default:
            return static_cast<float>(whole) * 3.1415927f / 180.0f;
    }
}

}  // namespace ruvex
