#include "adapters/openfx/host_image.h"

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

adapters::SourcePicture HostImage::source(HostAlpha alpha) const {
    return pictureOf<const std::byte>(properties_, alpha);
}

adapters::TargetPicture HostImage::target(HostAlpha alpha) const {
    return pictureOf<std::byte>(properties_, alpha);
}

}  // namespace ruvex::openfx
