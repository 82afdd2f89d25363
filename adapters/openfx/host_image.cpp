#include "adapters/openfx/host_image.h"

#include <cmath>
#include <cstdlib>

#include "adapters/openfx/failure.h"
#include "adapters/openfx/host_alpha.h"
#include "adapters/openfx/regions.h"

namespace ruvex::openfx {
namespace {

using adapters::Components;
using adapters::HostAlpha;
using adapters::PixelForm;
using adapters::PixelRect;
using adapters::SampleType;

[[noreturn]] void refuse(const std::string& what) {
    throw Failure(kOfxStatErrImageFormat, "the host gives an image " + what);
}

SampleType samplesOf(const Properties& image) {
    const std::string depth = image.getString(kOfxImageEffectPropPixelDepth);
    if (depth == kOfxBitDepthByte) return SampleType::Bits8;
    if (depth == kOfxBitDepthShort) return SampleType::Bits16;
    if (depth == kOfxBitDepthFloat) return SampleType::Float;
    refuse("of a depth that the effect does not support");
}

Components componentsOf(const Properties& image) {
    const std::string components = image.getString(kOfxImageEffectPropComponents);
    if (components == kOfxImageComponentRGBA) return Components::Rgba;
    if (components == kOfxImageComponentRGB) return Components::Rgb;
    if (components == kOfxImageComponentAlpha) return Components::Alpha;
    refuse("of components that the effect does not support");
}

PixelRect boundsOf(const Properties& image) {
    const auto bounds = image.findRectI(kOfxImagePropBounds);
    const auto pixels = bounds ? sanePixels(*bounds) : std::nullopt;
    if (!pixels) refuse("without bounds, or with bounds that no picture has");
    return *pixels;
}

void checkRows(std::ptrdiff_t rowBytes, const PixelRect& bounds, const PixelForm& form) {
    const auto row = static_cast<std::ptrdiff_t>(form.pixelBytes()) * bounds.width();
    if (bounds.height() > 1 && std::abs(rowBytes) < row) refuse("with rows that overlap");
}

bool isSameScale(double ofImage, double ofRender) {
    // Hosts round scales to two decimals, or to more.
    constexpr double kRounding = 0.0051;
    const bool known = std::isfinite(ofImage) && ofImage > 0.0;
    return !known || std::abs(ofImage - ofRender) <= kRounding;
}

/// Some hosts give no scale, or 0.
void checkScale(const Properties& image, OfxPointD ofRender) {
    const auto ofImage = image.findPointD(kOfxImageEffectPropRenderScale);
    if (!ofImage) return;
    const PixelScale wanted = pixelScale(ofRender, 1.0);
    if (isSameScale(ofImage->x, wanted.x) && isSameScale(ofImage->y, wanted.y)) return;
    throw Failure(kOfxStatFailed, "the host gives an image at another scale than it renders");
}

template <class Byte>
adapters::HostPicture<Byte> pictureOf(const Properties& image, HostAlpha alpha) {
    void* const data = image.getPointer(kOfxImagePropData);
    const auto rowBytes = image.findInt(kOfxImagePropRowBytes);
    if (!data || !rowBytes) refuse("without data");
    const PixelForm form{samplesOf(image), componentsOf(image), alphaOf(image, alpha)};
    const PixelRect bounds = boundsOf(image);
    checkRows(*rowBytes, bounds, form);
    return {static_cast<Byte*>(data), *rowBytes, bounds, form};
}

}  // namespace

HostImage::HostImage(const Host& host, const HostClip& clip, double time)
    : host_(host), properties_(host, nullptr) {
    OfxPropertySetHandle handle = nullptr;
    if (!clip.handle()) return;
    const OfxStatus status = host.effect->clipGetImage(clip.handle(), time, nullptr, &handle);
    if (status == kOfxStatOK) properties_ = Properties(host, handle);
}

HostImage::~HostImage() {
    if (exists()) host_.effect->clipReleaseImage(properties_.handle());
}

adapters::SourcePicture HostImage::source(HostAlpha alpha, OfxPointD renderScale) const {
    checkScale(properties_, renderScale);
    return pictureOf<const std::byte>(properties_, alpha);
}

adapters::TargetPicture HostImage::target(HostAlpha alpha) const {
    return pictureOf<std::byte>(properties_, alpha);
}

}  // namespace ruvex::openfx
