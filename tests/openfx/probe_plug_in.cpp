#include "tests/openfx/probe_plug_in.h"

#include <cstring>
#include <string_view>

namespace ruvex::ofxhost::test {
namespace {

OfxHost* probeHost = nullptr;
ProbeScript probeScript;

template <class Suite>
const Suite& suiteOf(const char* name) {
    return *static_cast<const Suite*>(probeHost->fetchSuite(probeHost->host, name, 1));
}

OfxStatus describeProbe(const ProbeCall& call) {
    OfxPropertySetHandle effect = nullptr;
    call.effects.getPropertySet(call.effect, &effect);
    call.properties.propSetString(effect, kOfxPropLabel, 0, "Probe");
    return call.properties.propSetString(effect, kOfxImageEffectPropSupportedContexts, 0,
                                         kOfxImageEffectContextFilter);
}

OfxStatus describeProbeInContext(const ProbeCall& call) {
    for (const char* clip : {kOfxImageEffectSimpleSourceClipName, kOfxImageEffectOutputClipName}) {
        OfxPropertySetHandle properties = nullptr;
        call.effects.clipDefine(call.effect, clip, &properties);
        call.properties.propSetString(properties, kOfxImageEffectPropSupportedComponents, 0,
                                      kOfxImageComponentRGBA);
    }
    OfxParamSetHandle set = nullptr;
    call.effects.getParamSet(call.effect, &set);
    OfxPropertySetHandle amount = nullptr;
    call.parameters.paramDefine(set, kOfxParamTypeDouble, "amount", &amount);
    call.properties.propSetDouble(amount, kOfxParamPropDefault, 0, 1.0);
    call.properties.propSetDouble(amount, kOfxParamPropMin, 0, 0.0);
    call.properties.propSetDouble(amount, kOfxParamPropMax, 0, 10.0);
    OfxPropertySetHandle kind = nullptr;
    call.parameters.paramDefine(set, kOfxParamTypeChoice, "kind", &kind);
    call.properties.propSetString(kind, kOfxParamPropChoiceOption, 0, "One");
    call.properties.propSetString(kind, kOfxParamPropChoiceOption, 1, "Two");
    return call.parameters.paramDefine(set, kOfxParamTypeRGB, "tint", nullptr);
}

void setProbeHost(OfxHost* host) {
    probeHost = host;
}

OfxStatus probeEntry(const char* action, const void* handle, OfxPropertySetHandle in,
                     OfxPropertySetHandle out) {
    const ProbeCall call{suiteOf<OfxPropertySuiteV1>(kOfxPropertySuite),
                         suiteOf<OfxImageEffectSuiteV1>(kOfxImageEffectSuite),
                         suiteOf<OfxParameterSuiteV1>(kOfxParameterSuite),
                         static_cast<OfxImageEffectHandle>(const_cast<void*>(handle)),
                         in,
                         out};
    const std::string_view name = action;
    if (name == kOfxActionDescribe) return describeProbe(call);
    if (name == kOfxImageEffectActionDescribeInContext) return describeProbeInContext(call);
    if (name == kOfxImageEffectActionRender) {
        return probeScript.render ? probeScript.render(call) : copySource(call);
    }
    if (name == kOfxActionInstanceChanged && probeScript.changed) return probeScript.changed(call);
    return kOfxStatReplyDefault;
}

/// The first byte of a pixel's row in an image.
std::byte* rowOf(const ProbeCall& call, OfxPropertySetHandle image, int x, int y) {
    constexpr int kPixelBytes = 4;
    void* data = nullptr;
    int bounds[4];
    int stride = 0;
    call.properties.propGetPointer(image, kOfxImagePropData, 0, &data);
    call.properties.propGetIntN(image, kOfxImagePropBounds, 4, bounds);
    call.properties.propGetInt(image, kOfxImagePropRowBytes, 0, &stride);
    return static_cast<std::byte*>(data) + static_cast<std::ptrdiff_t>(y - bounds[1]) * stride +
           static_cast<std::ptrdiff_t>(x - bounds[0]) * kPixelBytes;
}

}  // namespace

OfxPlugin& probePlugIn(ProbeScript script) {
    static OfxPlugin plugIn{
        kOfxImageEffectPluginApi, 1, "org.v-ruvex.probe", 1, 0, setProbeHost, probeEntry};
    probeScript = std::move(script);
    return plugIn;
}

OfxPropertySetHandle fetchImage(const ProbeCall& call, const char* clip, double time) {
    OfxImageClipHandle handle = nullptr;
    call.effects.clipGetHandle(call.effect, clip, &handle, nullptr);
    OfxPropertySetHandle image = nullptr;
    call.effects.clipGetImage(handle, time, nullptr, &image);
    return image;
}

OfxStatus copySource(const ProbeCall& call) {
    constexpr std::size_t kPixelBytes = 4;
    double time = 0.0;
    int window[4];
    call.properties.propGetDouble(call.in, kOfxPropTime, 0, &time);
    call.properties.propGetIntN(call.in, kOfxImageEffectPropRenderWindow, 4, window);
    OfxPropertySetHandle source = fetchImage(call, kOfxImageEffectSimpleSourceClipName, time);
    if (!source) return kOfxStatFailed;
    OfxPropertySetHandle output = fetchImage(call, kOfxImageEffectOutputClipName, time);
    for (int y = window[1]; output && y < window[3]; ++y) {
        std::memcpy(rowOf(call, output, window[0], y), rowOf(call, source, window[0], y),
                    static_cast<std::size_t>(window[2] - window[0]) * kPixelBytes);
    }
    call.effects.clipReleaseImage(source);
    return output ? call.effects.clipReleaseImage(output) : kOfxStatFailed;
}

}  // namespace ruvex::ofxhost::test
