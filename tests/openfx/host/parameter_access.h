// What the functions of the parameter suite share.

#pragma once

#include <functional>

#include "tests/openfx/host/parameter_set.h"

namespace ruvex::ofxhost {

/// A parameter with its value, as far as the call is allowed.
struct ParameterAccess {
    Parameter* parameter = nullptr;
    OfxStatus status = kOfxStatErrBadHandle;

    bool ok() const { return status == kOfxStatOK; }
};

/// The parameter of a handle; `function` is the one that was called.
ParameterAccess accessParameter(const char* function, OfxParamHandle handle);

/// The same for the parameter of an instance, which has a value.
ParameterAccess accessValue(const char* function, OfxParamHandle handle);

/// Makes a change for the plug-in, and tells the plug-in so where the host does.
OfxStatus changeByPlugIn(Parameter& parameter, const std::function<void(Parameter&)>& change);

// Functions of the suite that concern keys: suite_parameter_keys.cpp.
OfxStatus numberOfKeys(OfxParamHandle handle, unsigned int* count);
OfxStatus keyTime(OfxParamHandle handle, unsigned int index, OfxTime* time);
/// The key at a time, or the nearest one before (direction below 0) or after it.
OfxStatus keyIndex(OfxParamHandle handle, OfxTime time, int direction, int* index);
OfxStatus deleteKeyAt(OfxParamHandle handle, OfxTime time);
OfxStatus deleteKeys(OfxParamHandle handle);
OfxStatus copyParameter(OfxParamHandle to, OfxParamHandle from, OfxTime offset,
                        const OfxRangeD* frames);

}  // namespace ruvex::ofxhost
