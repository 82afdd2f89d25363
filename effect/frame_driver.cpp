#include "effect/frame_driver.h"

#include <cmath>

#include "effect/frame_region.h"
#include "effect/image_texture.h"
#include "effect/signal_fill.h"
#include "host/base/channel_mask.h"
#include "host/base/crop.h"
#include "imaging/blur/blur_gauss.h"
#include "imaging/copy_samplers.h"
#include "imaging/frame_generator.h"
#include "imaging/img_filler.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/wrap.h"
#include "imaging/pixel_convert.h"
#include "imaging/warp/lens_warper.h"
#include "imaging/warp/warp_render.h"
#include "stages/ruvex_sampler.h"
#include "stages/scan_line_adder.h"

namespace ruvex {
namespace {

// Above these values the whole picture is transparent black.
constexpr float kWhiteDotGone = 0.99f;
constexpr float kNoResolution = 0.01f;

// A fish eye or blur below its limit is not applied.
constexpr float kLeastFishEye = 0.1f;
constexpr float kLeastBlur = 0.1f;

constexpr std::uint32_t kChannelMaskCapability = 64;

// Sets the pixel aspect and its inverse for a processor that measures in pixels.
template <class Processor>
void setAspect(Processor& processor, const FrameScale& scale) {
    processor.scaleX = scale.aspectMember();
    processor.scaleY = 1.0f / processor.scaleX;
}

// Whether a texture that has a size got no memory for its pixels.
template <class P>
bool lacksMemory(const VxTexture<P>& texture) {
    return texture.allocationFailed && texture.x.size > 0 && texture.y.size > 0;
}

float inverseRadius(float radius) {
    constexpr float kNearlyNothing = 2.3509887e-38f;
    return std::fabs(radius) < kNearlyNothing ? 0.0f : 1.0f / radius;
}

// The lens in the middle of the work picture.
VxLensWarper lensOf(const FrameParameters& parameters, const FrameScale& scale, float res) {
    const double radius = parameters.real(ParameterId::FishEyeRadius);
    VxLensWarper lens;
    lens.radiusX = static_cast<float>(scale.scaleX * radius * res);
    lens.radiusY = static_cast<float>(scale.scaleY * radius * res);
    lens.inverseRadiusX = inverseRadius(lens.radiusX);
    lens.inverseRadiusY = inverseRadius(lens.radiusY);
    lens.centreX = scale.pixelsX * 0.5f * res;
    lens.centreY = scale.pixelsY * 0.5f * res;
    lens.exponent =
        static_cast<float>(maths::exp(parameters.real(ParameterId::FishEyePower) * -kPercent));
    return lens;
}

}  // namespace

template <class P>
FrameDriver<P>::FrameDriver(VxDsEffect& effect, const FrameHost& host,
                            const ParameterReader& reader, const FrameTime& time,
                            FrameMemory<P>& memory)
    : effect_(effect),
      host_(host),
      reader_(reader),
      time_(time),
      memory_(memory),
      region_(frameRegion(effect, host.roiSet)) {}

template <class P>
HRESULT FrameDriver<P>::renderFrame() {
    wrapImages();
    if (reader_.on(ParameterId::DisplayCropped)) {
        showCropped();
        if (reader_.on(ParameterId::BlankCropped)) blankCropped();
        return S_OK;
    }
    effect_.maskFlagA = 0;
    effect_.alphaMaskable = 1;
    if (const HRESULT status = process(); status != S_OK) return status;
    finish();
    return S_OK;
}

template <class P>
void FrameDriver<P>::wrapImages() {
    const PictureGeometry& output = effect_.geometry.output;
    const PictureGeometry& input = effect_.geometry.input;
    textureFromImage(effect_, outputTexture_, host_.output,
                     {.offsetX = output.offsetX, .offsetY = output.offsetY});
    textureFromImage(effect_, inputTexture_, host_.input,
                     {.offsetX = input.offsetX, .offsetY = input.offsetY, .useCrop = true});
    textureFromImage(effect_, maskTexture_, host_.pixelMask,
                     {.offsetX = wrapAdd(host_.maskOffsetX, input.offsetX),
                      .offsetY = wrapAdd(host_.maskOffsetY, input.offsetY)});
}

template <class P>
void FrameDriver<P>::showCropped() {
    SimpleCopySampler<P> copier;
    prepare(copier, effect_, region_);
    copier.setFieldMode(fieldOf(effect_));
    copier.process(&inputTexture_, &outputTexture_);
}

// Each step first checks whether the host has stopped the frame.
template <class P>
void FrameDriver<P>::finish() {
    if (interrupted()) return;
    restoreMaskedChannels();
    if (interrupted()) return;
    if (effect_.effectKind == EffectKind::Paint) paint();
    if (interrupted()) return;
    if (reader_.on(ParameterId::BlankCropped)) blankCropped();
}

template <class P>
void FrameDriver<P>::restoreMaskedChannels() {
    const bool maskable = effect_.effectKind != EffectKind::Transition &&
                          effect_.effectKind != EffectKind::WithoutInput;
    if (!maskable || (effect_.capabilityFlags & kChannelMaskCapability) == 0) return;
    fixChannelMask(effect_, outputTexture_, inputTexture_,
                   {.red = reader_.integer(ParameterId::MaskRed),
                    .green = reader_.integer(ParameterId::MaskGreen),
                    .blue = reader_.integer(ParameterId::MaskBlue),
                    .alpha = reader_.integer(ParameterId::MaskAlpha)});
}

template <class P>
void FrameDriver<P>::paint() {
    paintThroughMask(effect_, outputTexture_, inputTexture_, maskTexture_);
}

template <class P>
void FrameDriver<P>::blankCropped() {
    blankOutside(effect_, outputTexture_, inputTexture_, region_);
}

template <class P>
HRESULT FrameDriver<P>::process() {
    scale_ = frameScale(host_);
    parameters_.emplace(reader_, time_.seconds);
    if (!pictureVisible()) {
        clearOutput();
        return S_OK;
    }
    workRegion_ = scaledRegion(region_, res());
    if (!chooseSourceFrame()) {
        blankOutput();
        return S_OK;
    }
    measureSignal();
    if (reduced()) scaleDown();
    fishEye();
    blur();
    showSignal();
    if (reduced()) scaleUp();
    scanLines();
    releaseRepeat();
    return S_OK;
}

template <class P>
bool FrameDriver<P>::pictureVisible() const {
    const float whiteDot = parameters().fraction(ParameterId::WhiteDot);
    return !(whiteDot > kWhiteDotGone || res() < kNoResolution);
}

template <class P>
void FrameDriver<P>::clearOutput() {
    ColouredFrameGenerator<P> generator;
    generator.zero = true;
    prepare(generator, effect_, region_);
    generator.process(&outputTexture_);
}

// Sets the source to the frame that the tape shows. False if that is a frame at another time and
// the host refuses to give it.
template <class P>
bool FrameDriver<P>::chooseSourceFrame() {
    tape_ = tapePosition(reader_, time_);
    source_ = &inputTexture_;
    if (effect_.effectKind == EffectKind::Paint || tape_.shownFrame == time_.frame) return true;
    // The position of a stopped frame has no meaning.
    if (interrupted()) return true;
    constexpr std::int32_t kFirstInput = -1;
    repeatImage_ = fetchInputFrame(effect_, host_, repeatTexture_,
                                   tape_.shownFrame / time_.singleRate, true, kFirstInput);
    source_ = &repeatTexture_;
    return static_cast<bool>(repeatImage_);
}

template <class P>
void FrameDriver<P>::blankOutput() {
    VxImgFiller<P> filler;
    prepare(filler, effect_, region_);
    filler.process(outputTexture_);
}

template <class P>
void FrameDriver<P>::measureSignal() {
    const FrameState frame{.reader = reader_,
                           .parameters = parameters(),
                           .scale = scale_,
                           .time = time_,
                           .tape = tape_,
                           .play = playStatusAt(reader_, time_),
                           .signal = signalAt(reader_, time_, tape_)};
    signal_ = signalParameters(frame, PixelTraits<P>::kWhite);
}

template <class P>
void FrameDriver<P>::scaleDown() {
    allocateScaled(scaled_, *source_, scale_, res());
    // The frame goes on without these buffers, but it will not be what it should.
    if (lacksMemory(scaled_.source) || lacksMemory(scaled_.result)) {
        noteOutOfMemory(&effect_.interruption);
    }
    Texture repeating;
    repeating.refer(*source_);
    repeating.setEdgeMethods(kEdgeHold, kEdgeHold);
    moveScaled(effect_, repeating, scaled_.source, 1.0f / res(), workRegion_);
    source_ = &scaled_.source;
}

template <class P>
void FrameDriver<P>::fishEye() {
    const auto power = static_cast<float>(parameters().real(ParameterId::FishEyePower));
    if (!parameters().on(ParameterId::FishEye) || !(std::fabs(power) > kLeastFishEye)) return;
    VxLensWarper lens = lensOf(parameters(), scale_, res());
    lensTexture_.cloneLayout(*source_, Contents::Zero);
    if (lacksMemory(lensTexture_)) return raiseOutOfMemory(&effect_.interruption);
    VxWarpRender<P> render;
    render.warper = &lens;
    render.filter =
        parameters().on(ParameterId::Filter) ? WarpFilter::Bilinear : WarpFilter::Nearest;
    setAspect(render, scale_);
    prepare(render, effect_, workRegion_);
    Texture* target = &lensTexture_;
    render.process(target, *source_);
    source_ = &lensTexture_;
}

// Blurs in place: at full resolution and without a fish eye, that changes the host's input image.
template <class P>
void FrameDriver<P>::blur() {
    const double size = parameters().real(ParameterId::Blur);
    if (!(static_cast<float>(size) > kLeastBlur)) return;
    BlurRGBAGauss<P> sampler;
    sampler.iterations = 3;
    sampler.radiusX = static_cast<float>(scale_.scaleX * size * res() / 3.0);
    sampler.radiusY = static_cast<float>(scale_.scaleY * size * res() / 3.0);
    setAspect(sampler, scale_);
    prepare(sampler, effect_, workRegion_);
    sampler.process(source_, source_);
}

template <class P>
void FrameDriver<P>::showSignal() {
    RuvexSampler<P> television;
    television.signal = signal_;
    television.memory = &memory_;
    setAspect(television, scale_);
    prepare(television, effect_, workRegion_);
    television.process(*source_, sampled());
}

template <class P>
void FrameDriver<P>::scaleUp() {
    moveScaled(effect_, scaled_.result, outputTexture_, res(), region_);
}

template <class P>
void FrameDriver<P>::scanLines() {
    const auto width = static_cast<float>(parameters().integer(ParameterId::ScanlineWidth));
    VxScanLineAdder<P> adder;
    adder.lineWidth = truncateToInt(width * scale_.scaleY);
    if (adder.lineWidth <= 1) return;
    // Lines are drawn in place: each pixel is read where it is written, wherever the host places
    // the output.
    Texture lines;
    lines.refer(outputTexture_);
    lines.setOrigin(outputTexture_.x.offset, outputTexture_.y.offset);
    prepare(adder, effect_, region_);
    adder.process(lines, outputTexture_);
}

// The finishing steps use the host's current input, not a frame fetched from another time.
template <class P>
void FrameDriver<P>::releaseRepeat() {
    source_ = nullptr;
    repeatTexture_.clear();
    repeatImage_.reset();
}

template class FrameDriver<Rgba8>;
template class FrameDriver<RgbaS214>;

}  // namespace ruvex
