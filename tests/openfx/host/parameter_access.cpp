#include "tests/openfx/host/parameter_access.h"

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {

ParameterAccess accessParameter(const char* function, OfxParamHandle handle) {
    ParameterAccess access;
    access.parameter = objectOf<Parameter>(HandleKind::Parameter, handle);
    if (!access.parameter) return access;
    access.status = access.parameter->host().intercept(function, access.parameter->name());
    return access;
}

ParameterAccess accessValue(const char* function, OfxParamHandle handle) {
    ParameterAccess access = accessParameter(function, handle);
    if (!access.ok()) return access;
    if (!access.parameter->set()) {
        access.parameter->host().fault(std::string(function) + " of a description's parameter");
        access.status = kOfxStatErrBadHandle;
    } else if (!access.parameter->hasNumbers() && !access.parameter->isString()) {
        access.status = kOfxStatErrUnsupported;
    }
    return access;
}

OfxStatus changeByPlugIn(Parameter& parameter, const std::function<void(Parameter&)>& change) {
    ParameterSet& set = *parameter.set();
    set.edit(parameter, change);
    if (set.onPlugInEdit) set.onPlugInEdit(parameter);
    return kOfxStatOK;
}

}  // namespace ruvex::ofxhost
