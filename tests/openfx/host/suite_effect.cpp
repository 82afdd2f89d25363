// The image effect suite.

#include <memory>
#include <vector>

#include "tests/openfx/host/effect.h"
#include "tests/openfx/host/host.h"
#include "tests/openfx/host/suites.h"

namespace ruvex::ofxhost {
namespace {

Effect* effectOf(OfxImageEffectHandle handle) {
    return objectOf<Effect>(HandleKind::Effect, handle);
}
Clip* clipOf(OfxImageClipHandle handle) {
    return objectOf<Clip>(HandleKind::Clip, handle);
}

OfxStatus effectProperties(OfxImageEffectHandle handle, OfxPropertySetHandle* result) {
    const Effect* effect = effectOf(handle);
    if (!effect) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    const OfxStatus status = effect->host().intercept("getPropertySet");
    if (status == kOfxStatOK) *result = effect->properties.handle();
    return status;
}

OfxStatus effectParameters(OfxImageEffectHandle handle, OfxParamSetHandle* result) {
    const Effect* effect = effectOf(handle);
    if (!effect) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    const OfxStatus status = effect->host().intercept("getParamSet");
    if (status == kOfxStatOK) *result = effect->parameters.handle();
    return status;
}

OfxStatus defineClip(OfxImageEffectHandle handle, const char* name, OfxPropertySetHandle* result) {
    Effect* effect = effectOf(handle);
    if (!effect || effect->isInstance()) return kOfxStatErrBadHandle;
    if (!name) return kOfxStatErrValue;
    const OfxStatus status = effect->host().intercept("clipDefine", name);
    if (status != kOfxStatOK) return status;
    if (effect->clip(name)) return kOfxStatErrExists;
    const Clip& clip = effect->defineClip(name);
    if (result) *result = clip.properties.handle();
    return kOfxStatOK;
}

OfxStatus clipHandle(OfxImageEffectHandle handle, const char* name, OfxImageClipHandle* result,
                     OfxPropertySetHandle* properties) {
    const Effect* effect = effectOf(handle);
    if (!effect) return kOfxStatErrBadHandle;
    if (!name || !result) return kOfxStatErrValue;
    const OfxStatus status = effect->host().intercept("clipGetHandle", name);
    if (status != kOfxStatOK) return status;
    const Clip* clip = effect->clip(name);
    if (!clip) return kOfxStatErrUnknown;
    *result = clip->handle();
    if (properties) *properties = clip->properties.handle();
    return kOfxStatOK;
}

OfxStatus clipProperties(OfxImageClipHandle handle, OfxPropertySetHandle* result) {
    const Clip* clip = clipOf(handle);
    if (!clip) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    const OfxStatus status = clip->properties.host().intercept("clipGetPropertySet", clip->name());
    if (status == kOfxStatOK) *result = clip->properties.handle();
    return status;
}

/// The image of an input at the time that the host's traits allow; null for none.
std::shared_ptr<Image> inputImage(const Clip& clip, double time, const CurrentRender& render) {
    if (time != render.time) {
        const OtherTimes other = clip.properties.host().traits.otherTimes;
        if (other == OtherTimes::Refused) return nullptr;
        if (other == OtherTimes::SameFrame) time = render.time;
    }
    return clip.makeImage(time, render.scale, render.record);
}

/// The whole image, whatever the region: a host may give more than was asked for.
OfxStatus clipImage(OfxImageClipHandle handle, OfxTime time, const OfxRectD*,
                    OfxPropertySetHandle* result) {
    const Clip* clip = clipOf(handle);
    if (!clip || !clip->effect()) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    Host& host = clip->properties.host();
    const CurrentRender* render = currentRender();
    if (!render || render->effect != clip->effect()) {
        host.fault("clipGetImage of " + clip->name() + " outside a render");
        return kOfxStatFailed;
    }
    {
        const std::lock_guard lock(render->record->mutex);
        render->record->fetches.push_back({clip->name(), time});
    }
    const OfxStatus status = host.intercept("clipGetImage", clip->name());
    if (status != kOfxStatOK) return status;
    const auto image = clip->isOutput() ? render->output : inputImage(*clip, time, *render);
    if (!image) return kOfxStatFailed;
    ImageTable::instance().add(image);
    *result = image->properties.handle();
    return kOfxStatOK;
}

OfxStatus releaseImage(OfxPropertySetHandle handle) {
    const auto* properties = objectOf<PropertySet>(HandleKind::Properties, handle);
    const auto image = ImageTable::instance().release(handle);
    if (!image) {
        if (properties) properties->host().fault("a release of an image that is not held");
        return kOfxStatErrBadHandle;
    }
    Host& host = image->properties.host();
    if (!image->guardsIntact()) host.fault("a write beside an image");
    return host.intercept("clipReleaseImage");
}

OfxStatus clipRegion(OfxImageClipHandle handle, OfxTime, OfxRectD* result) {
    const Clip* clip = clipOf(handle);
    if (!clip || !clip->effect()) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    const OfxStatus status =
        clip->properties.host().intercept("clipGetRegionOfDefinition", clip->name());
    if (status != kOfxStatOK) return status;
    if (!clip->setup().regionOfDefinition || !clip->setup().connected) return kOfxStatFailed;
    *result = *clip->setup().regionOfDefinition;
    return kOfxStatOK;
}

int abortRender(OfxImageEffectHandle handle) {
    const Effect* effect = effectOf(handle);
    const CurrentRender* render = currentRender();
    // Threads of the plug-in may ask too; only that of the render is stopped.
    if (!effect || !render || render->effect != effect) return 0;
    const int query = render->record->abortQueries++;
    return render->abortAt >= 0 && query >= render->abortAt;
}

/// Memory that a plug-in got from the host.
struct ImageMemory {
    explicit ImageMemory(std::size_t size) : bytes(size) {}

    std::vector<std::byte> bytes;
    OwnHandle<HandleKind::Memory, OfxImageMemoryHandle> handle{this};
};

OfxStatus allocateMemory(OfxImageEffectHandle, std::size_t size, OfxImageMemoryHandle* result) {
    if (!result) return kOfxStatErrValue;
    *result = (new ImageMemory(size))->handle.get();
    return kOfxStatOK;
}

OfxStatus freeMemory(OfxImageMemoryHandle handle) {
    auto* memory = objectOf<ImageMemory>(HandleKind::Memory, handle);
    delete memory;
    return memory ? kOfxStatOK : kOfxStatErrBadHandle;
}

OfxStatus lockMemory(OfxImageMemoryHandle handle, void** result) {
    auto* memory = objectOf<ImageMemory>(HandleKind::Memory, handle);
    if (!memory) return kOfxStatErrBadHandle;
    if (result) *result = memory->bytes.data();
    return kOfxStatOK;
}

OfxStatus unlockMemory(OfxImageMemoryHandle handle) {
    return objectOf<ImageMemory>(HandleKind::Memory, handle) ? kOfxStatOK : kOfxStatErrBadHandle;
}

}  // namespace

const OfxImageEffectSuiteV1& imageEffectSuite() {
    static const OfxImageEffectSuiteV1 suite{
        effectProperties, effectParameters, defineClip,  clipHandle,  clipProperties,
        clipImage,        releaseImage,     clipRegion,  abortRender, allocateMemory,
        freeMemory,       lockMemory,       unlockMemory};
    return suite;
}

}  // namespace ruvex::ofxhost
