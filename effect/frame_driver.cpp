#include "effect/frame_driver.h"

#include "effect/frame_region.h"
#include "effect/image_texture.h"
#include "host/base/crop.h"
#include "imaging/copy_samplers.h"
#include "imaging/frame_generator.h"

namespace ruvex {
namespace {

// Beyond these the whole picture is transparent black.
constexpr float kWhiteDotGone = 0.99f;
constexpr float kNoResolution = 0.01f;

// Processors that skip rows by themselves are told the field; all others see whole images.
std::int32_t fieldOf(const VxDsEffect& effect) {
    return effect.fieldHandling == 2 ? effect.fieldSelector : 0;
}

}  // namespace

template <class P>
FrameDriver<P>::FrameDriver(VxDsEffect& effect, const FrameHost& host,
                            const ParameterReader& reader, double time)
    : effect_(effect),
      host_(host),
      reader_(reader),
      time_(time),
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
    if (!interrupted() && reader_.on(ParameterId::BlankCropped)) blankCropped();
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
}

template <class P>
void FrameDriver<P>::showCropped() {
    SimpleCopySampler<P> copier;
    prepare(copier, effect_, region_);
    copier.setFieldMode(fieldOf(effect_));
    copier.process(&inputTexture_, &outputTexture_);
}

template <class P>
void FrameDriver<P>::blankCropped() {
    blankOutside(effect_, outputTexture_, inputTexture_, region_);
}

template <class P>
HRESULT FrameDriver<P>::process() {
    scale_ = frameScale(host_, time_);
    parameters_.emplace(reader_, time_);
    res_ = parameters_->fraction(ParameterId::Resolution);
    whiteDot_ = parameters_->fraction(ParameterId::WhiteDot);
    if (!pictureVisible()) {
        clearOutput();
        return S_OK;
    }
    source_ = &inputTexture_;
    workRegion_ = scaledRegion(region_, res_);
    if (reduced()) scaleDown();
    showSignal();
    if (reduced()) scaleUp();
    return S_OK;
}

template <class P>
bool FrameDriver<P>::pictureVisible() const {
    return !(whiteDot_ > kWhiteDotGone || res_ < kNoResolution);
}

template <class P>
void FrameDriver<P>::clearOutput() {
    ColouredFrameGenerator<P> generator;
    generator.zero = true;
    prepare(generator, effect_, region_);
    generator.process(&outputTexture_);
}

template <class P>
void FrameDriver<P>::scaleDown() {
    allocateScaled(scaled_, *source_, scale_, res_);
    Texture repeating;
    repeating.refer(*source_);
    repeating.setEdgeMethods(kEdgeHold, kEdgeHold);
    moveScaled(effect_, repeating, scaled_.source, 1.0f / res_, workRegion_);
    source_ = &scaled_.source;
}

template <class P>
void FrameDriver<P>::showSignal() {
    SimpleCopySampler<P> copier;
    prepare(copier, effect_, workRegion_);
    copier.process(source_, &sampled());
}

template <class P>
void FrameDriver<P>::scaleUp() {
    moveScaled(effect_, scaled_.result, outputTexture_, res_, region_);
}

template class FrameDriver<Rgba8>;
template class FrameDriver<RgbaS214>;

}  // namespace ruvex
