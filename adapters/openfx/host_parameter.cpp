#include "adapters/openfx/host_parameter.h"

#include <algorithm>
#include <cmath>

#include "adapters/openfx/failure.h"

namespace ruvex::openfx {

HostParameter::HostParameter(const Host& host, OfxParamSetHandle set, const std::string& name)
    : host_(host) {
    const OfxStatus status = host.parameter->paramGetHandle(set, name.c_str(), &handle_, nullptr);
    if (status != kOfxStatOK) handle_ = nullptr;
}

Properties HostParameter::properties() const {
    OfxPropertySetHandle set = nullptr;
    if (!handle_ || host_.parameter->paramGetPropertySet(handle_, &set) != kOfxStatOK) {
        set = nullptr;
    }
    return {host_, set};
}

std::optional<double> HostParameter::realAt(double time) const {
    if (!handle_) return {};
    double value = 0.0;
    if (host_.parameter->paramGetValueAtTime(handle_, time, &value) == kOfxStatOK) return value;
    if (host_.parameter->paramGetValue(handle_, &value) == kOfxStatOK) return value;
    return {};
}

std::optional<HostColour> HostParameter::colourAt(double time) const {
    if (!handle_) return {};
    HostColour value{};
    auto& [r, g, b] = value;
    if (host_.parameter->paramGetValueAtTime(handle_, time, &r, &g, &b) == kOfxStatOK) return value;
    if (host_.parameter->paramGetValue(handle_, &r, &g, &b) == kOfxStatOK) return value;
    return {};
}

std::optional<int> HostParameter::wholeAt(double time) const {
    if (!handle_) return {};
    int value = 0;
    if (host_.parameter->paramGetValueAtTime(handle_, time, &value) == kOfxStatOK) return value;
    if (host_.parameter->paramGetValue(handle_, &value) == kOfxStatOK) return value;
    return {};
}

std::vector<double> HostParameter::keyTimes() const {
    unsigned count = 0;
    if (!handle_ || host_.parameter->paramGetNumKeys(handle_, &count) != kOfxStatOK) return {};
    std::vector<double> times;
    for (unsigned i = 0; i < std::min(count, kMostKeys); ++i) {
        double time = 0.0;
        const OfxStatus status = host_.parameter->paramGetKeyTime(handle_, i, &time);
        if (status != kOfxStatOK) break;
        if (std::isfinite(time)) times.push_back(time);
    }
    std::ranges::sort(times);
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

bool HostParameter::hasKeys() const {
    unsigned count = 0;
    return handle_ && host_.parameter->paramGetNumKeys(handle_, &count) == kOfxStatOK && count > 0;
}

bool HostParameter::isAnimating() const {
    return hasKeys() || properties().getInt(kOfxParamPropIsAnimating, 0) != 0;
}

void HostParameter::removeKeys() const {
    if (hasKeys()) host_.parameter->paramDeleteAllKeys(handle_);
}

void HostParameter::setReal(double value) const {
    removeKeys();
    if (handle_) host_.parameter->paramSetValue(handle_, value);
}

void HostParameter::setColour(const HostColour& value) const {
    removeKeys();
    if (handle_) host_.parameter->paramSetValue(handle_, value[0], value[1], value[2]);
}

void HostParameter::setWhole(int value) const {
    removeKeys();
    if (handle_) host_.parameter->paramSetValue(handle_, value);
}

void HostParameter::setRealAt(double time, double value) const {
    if (!handle_) return;
    if (host_.parameter->paramSetValueAtTime(handle_, time, value) == kOfxStatOK) return;
    host_.parameter->paramSetValue(handle_, value);
}

void HostParameter::setColourAt(double time, const HostColour& value) const {
    if (!handle_) return;
    const auto [r, g, b] = value;
    if (host_.parameter->paramSetValueAtTime(handle_, time, r, g, b) == kOfxStatOK) return;
    host_.parameter->paramSetValue(handle_, r, g, b);
}

ParameterSet::ParameterSet(const Host& host, OfxImageEffectHandle effect) : host_(host) {
    if (host.effect->getParamSet(effect, &handle_) != kOfxStatOK || !handle_) {
        throw Failure(kOfxStatErrBadHandle, "the host gives no parameters of the effect");
    }
}

}  // namespace ruvex::openfx
