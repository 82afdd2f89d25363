#include "tests/openfx/host/host.h"

#include <algorithm>

#include "tests/openfx/host/suites.h"

namespace ruvex::ofxhost {
namespace {

/// Gives the suite of the host that a handle belongs to.
const void* fetchSuite(OfxPropertySetHandle handle, const char* name, int version) {
    const auto* properties = objectOf<PropertySet>(HandleKind::Properties, handle);
    if (!properties || !name) return nullptr;
    return properties->host().suite(name, version);
}

void addHostProperties(PropertySet& set, const HostTraits& traits) {
    constexpr int kMostParameters = -1;  // no limit
    set.add(kOfxPropType, text(kOfxTypeImageEffectHost), Writer::Host);
    set.add(kOfxPropName, text("org.v-ruvex.test-host"), Writer::Host);
    set.add(kOfxPropLabel, text("Test host"), Writer::Host);
    set.add(kOfxPropVersion, ints({1, 0, 0}), Writer::Host);
    set.add(kOfxPropVersionLabel, text("1.0"), Writer::Host);
    set.add(kOfxPropAPIVersion, ints({1, 4}), Writer::Host);
    set.add(kOfxImageEffectHostPropIsBackground, ints({traits.background}), Writer::Host);
    set.add(kOfxImageEffectPropSupportsOverlays, ints({traits.overlays}), Writer::Host);
    set.add(kOfxImageEffectPropSupportsMultiResolution, ints({1}), Writer::Host);
    set.add(kOfxImageEffectPropSupportsTiles, ints({1}), Writer::Host);
    set.add(kOfxImageEffectPropTemporalClipAccess, ints({traits.temporalAccess}), Writer::Host);
    set.add(kOfxImageEffectPropSupportedComponents,
            texts({kOfxImageComponentRGBA, kOfxImageComponentRGB, kOfxImageComponentAlpha}),
            Writer::Host);
    set.add(kOfxImageEffectPropSupportedContexts,
            texts({kOfxImageEffectContextFilter, kOfxImageEffectContextGeneral}), Writer::Host);
    set.add(kOfxImageEffectPropSupportedPixelDepths,
            texts({kOfxBitDepthByte, kOfxBitDepthShort, kOfxBitDepthFloat}), Writer::Host);
    set.add(kOfxImageEffectPropSupportsMultipleClipDepths, ints({0}), Writer::Host);
    set.add(kOfxImageEffectPropSupportsMultipleClipPARs, ints({0}), Writer::Host);
    set.add(kOfxImageEffectPropSetableFrameRate, ints({0}), Writer::Host);
    set.add(kOfxImageEffectPropSetableFielding, ints({0}), Writer::Host);
    set.add(kOfxImageEffectInstancePropSequentialRender, ints({0}), Writer::Host);
    set.add(kOfxParamHostPropSupportsBooleanAnimation, ints({0}), Writer::Host);
    set.add(kOfxParamHostPropSupportsChoiceAnimation, ints({0}), Writer::Host);
    set.add(kOfxParamHostPropSupportsStringAnimation, ints({0}), Writer::Host);
    set.add(kOfxParamHostPropMaxParameters, ints({kMostParameters}), Writer::Host);
    set.add(kOfxParamHostPropMaxPages, ints({0}), Writer::Host);
    set.add(kOfxParamHostPropPageRowColumnCount, ints({0, 0}), Writer::Host);
}

}  // namespace

Host::Host(HostTraits hostTraits)
    : traits(std::move(hostTraits)), properties_(std::make_unique<PropertySet>(*this)) {
    addHostProperties(*properties_, traits);
    ofx_ = {properties_->handle(), fetchSuite};
}

Host::~Host() = default;

void Host::fault(const std::string& what) {
    const std::lock_guard lock(mutex_);
    // A plug-in that does the same wrong thing for each frame is one fault.
    if (std::ranges::find(faults_, what) == faults_.end()) faults_.push_back(what);
}

std::vector<std::string> Host::faults() const {
    const std::lock_guard lock(mutex_);
    return faults_;
}

void Host::clearFaults() {
    const std::lock_guard lock(mutex_);
    faults_.clear();
}

void Host::addMessage(Message message) {
    const std::lock_guard lock(mutex_);
    messages_.push_back(std::move(message));
}

void Host::clearPersistentMessage() {
    const std::lock_guard lock(mutex_);
    std::erase_if(messages_, [](const Message& message) { return message.persistent; });
}

std::vector<Message> Host::messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
}

OfxStatus Host::intercept(std::string_view function, std::string_view name) const {
    return traits.intercept ? traits.intercept({function, name}) : kOfxStatOK;
}

const void* Host::suite(const std::string& name, int version) const {
    const std::string numbered = name + " " + std::to_string(version);
    if (traits.missingSuites.contains(name) || traits.missingSuites.contains(numbered)) {
        return nullptr;
    }
    const std::pair<std::string, const void*> suites[] = {
        {std::string(kOfxPropertySuite) + " 1", &propertySuite()},
        {std::string(kOfxImageEffectSuite) + " 1", &imageEffectSuite()},
        {std::string(kOfxParameterSuite) + " 1", &parameterSuite()},
        {std::string(kOfxMessageSuite) + " 1", &messageSuite1()},
        {std::string(kOfxMessageSuite) + " 2", &messageSuite2()},
        {std::string(kOfxInteractSuite) + " 1", &interactSuite()}};
    for (const auto& [suiteName, functions] : suites) {
        if (suiteName == numbered) return functions;
    }
    return nullptr;
}

}  // namespace ruvex::ofxhost
