// The least that a host needs for parameters: values over time, and keys.

#pragma once

#include <cstdarg>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adapters/openfx/host_parameter.h"

namespace ruvex::openfx::test {

struct TinyParameter {
    /// Of the channels of a colour, or the first one alone.
    std::function<HostColour(double time)> value;
    bool whole = false;
    bool colour = false;
    std::vector<double> keys{};
    OfxStatus status = kOfxStatOK;  ///< Of all requests for values.
};

/// Parameters by their names. Functions that are not needed are null.
struct TinyHost {
    std::map<std::string, TinyParameter> parameters;

    ParameterSet set() { return {host(), nullptr}; }
    Host host();

    static TinyHost*& current() {
        static TinyHost* only = nullptr;
        return only;
    }
};

inline TinyParameter& tinyParameter(OfxParamHandle handle) {
    return *reinterpret_cast<TinyParameter*>(handle);
}

inline OfxStatus giveTinyValue(const TinyParameter& parameter, double time, va_list& into) {
    const HostColour value = parameter.value(time);
    if (parameter.whole) {
        *va_arg(into, int*) = static_cast<int>(value[0]);
        return parameter.status;
    }
    for (int channel = 0; channel < (parameter.colour ? 3 : 1); ++channel) {
        *va_arg(into, double*) = value[static_cast<std::size_t>(channel)];
    }
    return parameter.status;
}

inline OfxStatus tinyValueAtTime(OfxParamHandle handle, OfxTime time, ...) {
    va_list into;
    va_start(into, time);
    const OfxStatus status = giveTinyValue(tinyParameter(handle), time, into);
    va_end(into);
    return status;
}

inline OfxStatus tinyValue(OfxParamHandle handle, ...) {
    va_list into;
    va_start(into, handle);
    const OfxStatus status = giveTinyValue(tinyParameter(handle), 0.0, into);
    va_end(into);
    return status;
}

inline Host TinyHost::host() {
    current() = this;
    static const OfxPropertySuiteV1 property{};
    static const OfxImageEffectSuiteV1 effect = [] {
        OfxImageEffectSuiteV1 suite{};
        suite.getParamSet = [](OfxImageEffectHandle, OfxParamSetHandle* set) {
            *set = reinterpret_cast<OfxParamSetHandle>(current());
            return kOfxStatOK;
        };
        return suite;
    }();
    static const OfxParameterSuiteV1 parameter = [] {
        OfxParameterSuiteV1 suite{};
        suite.paramGetHandle = [](OfxParamSetHandle, const char* name, OfxParamHandle* handle,
                                  OfxPropertySetHandle*) {
            const auto found = current()->parameters.find(name);
            if (found == current()->parameters.end()) return kOfxStatErrUnknown;
            *handle = reinterpret_cast<OfxParamHandle>(&found->second);
            return kOfxStatOK;
        };
        suite.paramGetPropertySet = [](OfxParamHandle, OfxPropertySetHandle*) {
            return kOfxStatErrUnknown;
        };
        suite.paramGetValue = tinyValue;
        suite.paramGetValueAtTime = tinyValueAtTime;
        suite.paramGetNumKeys = [](OfxParamHandle handle, unsigned* count) {
            *count = static_cast<unsigned>(tinyParameter(handle).keys.size());
            return kOfxStatOK;
        };
        suite.paramGetKeyTime = [](OfxParamHandle handle, unsigned key, OfxTime* time) {
            *time = tinyParameter(handle).keys.at(key);
            return kOfxStatOK;
        };
        return suite;
    }();
    return {.property = &property, .effect = &effect, .parameter = &parameter};
}

}  // namespace ruvex::openfx::test
