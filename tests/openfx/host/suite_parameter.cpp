// The parameter suite.

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <limits>

#include "tests/openfx/host/host.h"
#include "tests/openfx/host/parameter_access.h"
#include "tests/openfx/host/parameter_properties.h"
#include "tests/openfx/host/suites.h"
#include "tests/openfx/host/whole_number.h"

namespace ruvex::ofxhost {
namespace {

ParameterSet* setOf(OfxParamSetHandle handle) {
    return objectOf<ParameterSet>(HandleKind::Parameters, handle);
}

/// Stores numbers through the pointers that a plug-in passes.
void storeNumbers(const Parameter& parameter, const std::vector<double>& numbers,
                  va_list pointers) {
    const bool real = parameter.isType(kOfxParamTypeDouble) || parameter.isType(kOfxParamTypeRGB);
    for (const double number : numbers) {
        if (real) {
            if (double* to = va_arg(pointers, double*)) *to = number;
        } else {
            if (int* to = va_arg(pointers, int*)) *to = wholeNumber(number);
        }
    }
}

OfxStatus giveAt(const char* function, OfxParamHandle handle, double time, va_list pointers) {
    const ParameterAccess access = accessValue(function, handle);
    if (!access.ok()) return access.status;
    Parameter& parameter = *access.parameter;
    if (parameter.isString()) {
        // The pointer is valid until the value changes.
        if (char** to = va_arg(pointers, char**)) {
            *to = const_cast<char*>(parameter.state().text.c_str());
        }
        return kOfxStatOK;
    }
    storeNumbers(parameter, parameter.numbersAt(time), pointers);
    return kOfxStatOK;
}

OfxStatus getValue(OfxParamHandle handle, ...) {
    const auto* parameter = objectOf<Parameter>(HandleKind::Parameter, handle);
    va_list pointers;
    va_start(pointers, handle);
    const OfxStatus status =
        giveAt("paramGetValue", handle, parameter ? parameter->host().time : 0.0, pointers);
    va_end(pointers);
    return status;
}

OfxStatus getValueAtTime(OfxParamHandle handle, OfxTime time, ...) {
    const auto* parameter = objectOf<Parameter>(HandleKind::Parameter, handle);
    if (parameter && parameter->host().traits.ignoresTimes) time = parameter->host().time;
    va_list pointers;
    va_start(pointers, time);
    const OfxStatus status = giveAt("paramGetValueAtTime", handle, time, pointers);
    va_end(pointers);
    return status;
}

std::vector<double> takeNumbers(const Parameter& parameter, va_list values) {
    const bool real = parameter.isType(kOfxParamTypeDouble) || parameter.isType(kOfxParamTypeRGB);
    std::vector<double> numbers;
    for (std::size_t i = 0; i < numberCount(parameter.type()); ++i) {
        numbers.push_back(real ? va_arg(values, double) : va_arg(values, int));
    }
    return numbers;
}

/// Remembers a value that the parameter's own properties exclude.
void checkRange(const Parameter& parameter, const std::vector<double>& numbers) {
    const bool choice = parameter.isType(kOfxParamTypeChoice);
    double low = 0.0;
    double high = 1.0;
    if (choice) {
        high =
            static_cast<double>(parameter.properties.texts(kOfxParamPropChoiceOption).size()) - 1.0;
    } else if (parameter.isType(kOfxParamTypeInteger)) {
        low = parameter.properties.number(kOfxParamPropMin);
        high = parameter.properties.number(kOfxParamPropMax);
    } else if (parameter.isType(kOfxParamTypeDouble)) {
        low = parameter.properties.real(kOfxParamPropMin);
        high = parameter.properties.real(kOfxParamPropMax);
    }
    for (const double number : numbers) {
        if (number >= low && number <= high) continue;
        parameter.host().fault("a value outside the range of " + parameter.name());
    }
}

OfxStatus takeAt(const char* function, OfxParamHandle handle, const double* time, va_list values) {
    const ParameterAccess access = accessValue(function, handle);
    if (!access.ok()) return access.status;
    Parameter& parameter = *access.parameter;
    if (parameter.isString()) {
        const char* value = va_arg(values, const char*);
        if (!value) return kOfxStatErrValue;
        return changeByPlugIn(parameter, [&](Parameter& changed) { changed.setText(value); });
    }
    const std::vector<double> numbers = takeNumbers(parameter, values);
    checkRange(parameter, numbers);
    // A value for an animated parameter is a key at the current time.
    const bool asKey = parameter.animates() && (time || !parameter.state().keys.empty());
    const double keyTime = time ? *time : parameter.host().time;
    return changeByPlugIn(parameter, [&](Parameter& changed) {
        asKey ? changed.setKey({keyTime, numbers}) : changed.setNumbers(numbers);
    });
}

OfxStatus setValue(OfxParamHandle handle, ...) {
    va_list values;
    va_start(values, handle);
    const OfxStatus status = takeAt("paramSetValue", handle, nullptr, values);
    va_end(values);
    return status;
}

OfxStatus setValueAtTime(OfxParamHandle handle, OfxTime time, ...) {
    va_list values;
    va_start(values, time);
    const OfxStatus status = takeAt("paramSetValueAtTime", handle, &time, values);
    va_end(values);
    return status;
}

OfxStatus noDerivative(OfxParamHandle, OfxTime, ...) {
    return kOfxStatErrUnsupported;
}

OfxStatus noIntegral(OfxParamHandle, OfxTime, OfxTime, ...) {
    return kOfxStatErrUnsupported;
}

OfxStatus define(OfxParamSetHandle handle, const char* type, const char* name,
                 OfxPropertySetHandle* properties) {
    ParameterSet* set = setOf(handle);
    if (!set) return kOfxStatErrBadHandle;
    if (!type || !name) return kOfxStatErrValue;
    const OfxStatus status = set->host().intercept("paramDefine", name);
    if (status != kOfxStatOK) return status;
    if (!Parameter::isKnownType(type)) return kOfxStatErrUnknown;
    if (set->find(name)) {
        set->host().fault(std::string("a second parameter ") + name);
        return kOfxStatErrExists;
    }
    Parameter& parameter = set->define(type, name);
    if (properties) *properties = parameter.properties.handle();
    return kOfxStatOK;
}

OfxStatus parameterHandle(OfxParamSetHandle handle, const char* name, OfxParamHandle* result,
                          OfxPropertySetHandle* properties) {
    const ParameterSet* set = setOf(handle);
    if (!set) return kOfxStatErrBadHandle;
    if (!name || !result) return kOfxStatErrValue;
    const OfxStatus status = set->host().intercept("paramGetHandle", name);
    if (status != kOfxStatOK) return status;
    const Parameter* parameter = set->find(name);
    if (!parameter) return kOfxStatErrUnknown;
    *result = parameter->handle();
    if (properties) *properties = parameter->properties.handle();
    return kOfxStatOK;
}

OfxStatus setProperties(OfxParamSetHandle handle, OfxPropertySetHandle* result) {
    const ParameterSet* set = setOf(handle);
    if (!set) return kOfxStatErrBadHandle;
    if (!result) return kOfxStatErrValue;
    *result = set->properties.handle();
    return set->host().intercept("paramSetGetPropertySet");
}

OfxStatus parameterProperties(OfxParamHandle handle, OfxPropertySetHandle* result) {
    const ParameterAccess access = accessParameter("paramGetPropertySet", handle);
    if (!access.ok()) return access.status;
    if (!result) return kOfxStatErrValue;
    *result = access.parameter->properties.handle();
    return kOfxStatOK;
}

OfxStatus editBegin(OfxParamSetHandle handle, const char* name) {
    ParameterSet* set = setOf(handle);
    if (!set) return kOfxStatErrBadHandle;
    const OfxStatus status = set->host().intercept("paramEditBegin", name ? name : "");
    if (status == kOfxStatOK) set->beginEdit(name ? name : "");
    return status;
}

OfxStatus editEnd(OfxParamSetHandle handle) {
    ParameterSet* set = setOf(handle);
    if (!set) return kOfxStatErrBadHandle;
    const OfxStatus status = set->host().intercept("paramEditEnd");
    if (status != kOfxStatOK) return status;
    if (!set->endEdit()) {
        set->host().fault("paramEditEnd without paramEditBegin");
        return kOfxStatFailed;
    }
    return kOfxStatOK;
}

}  // namespace

const OfxParameterSuiteV1& parameterSuite() {
    static const OfxParameterSuiteV1 suite{
        define,    parameterHandle, setProperties, parameterProperties,
        getValue,  getValueAtTime,  noDerivative,  noIntegral,
        setValue,  setValueAtTime,  numberOfKeys,  keyTime,
        keyIndex,  deleteKeyAt,     deleteKeys,    copyParameter,
        editBegin, editEnd};
    return suite;
}

}  // namespace ruvex::ofxhost
