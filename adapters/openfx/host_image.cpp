#include "adapters/openfx/host_image.h"

#include <cstdint>
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

std::size_t sampleBytes(SampleType samples) {
    return samples == SampleType::Bits8 ? 1 : samples == SampleType::Bits16 ? 2 : 4;
}

/// Rows must not overlap. Samples are where the processor can read them.
void checkRows(std::uintptr_t data, std::ptrdiff_t rowBytes, const PixelRect& bounds,
               const PixelForm& form) {
    const auto pixels = static_cast<std::size_t>(bounds.width());
    const auto distance = static_cast<std::size_t>(std::abs(rowBytes));
    if (bounds.height() > 1 && distance < pixels * form.pixelBytes()) {
        refuse("with rows that overlap");
    }
    const std::size_t alignment = sampleBytes(form.samples);
    if (data % alignment != 0 || distance % alignment != 0) {
        refuse("with samples at odd places of memory");
    }
}

template <class Byte>
adapters::HostPicture<Byte> pictureOf(const Properties& image, HostAlpha alpha) {
    void* const data = image.getPointer(kOfxImagePropData);
    const auto rowBytes = image.findInt(kOfxImagePropRowBytes);
    if (!data || !rowBytes) refuse("without data");
    const PixelForm form{samplesOf(image), componentsOf(image), alphaOf(image, alpha)};
    const PixelRect bounds = boundsOf(image);
    checkRows(reinterpret_cast<std::uintptr_t>(data), *rowBytes, bounds, form);
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
