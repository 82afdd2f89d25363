#include "adapters/openfx/declare_parameters.h"

#include "adapters/openfx/failure.h"
#include "adapters/openfx/parameter_list.h"
#include "adapters/openfx/parameter_names.h"

namespace ruvex::openfx {
namespace {

const char* typeOf(DeclaredKind kind) {
    switch (kind) {
        case DeclaredKind::Real:
            return kOfxParamTypeDouble;
        case DeclaredKind::Integer:
            return kOfxParamTypeInteger;
        case DeclaredKind::Choice:
            return kOfxParamTypeChoice;
        case DeclaredKind::CheckBox:
            return kOfxParamTypeBoolean;
        case DeclaredKind::Colour:
            return kOfxParamTypeRGB;
        case DeclaredKind::Button:
            break;
    }
    return kOfxParamTypePushButton;
}

/// Defines one parameter; without a handle if the host refuses.
Properties define(const Host& host, OfxParamSetHandle set, const char* type,
                  const std::string& name) {
    OfxPropertySetHandle handle = nullptr;
    if (host.parameter->paramDefine(set, type, name.c_str(), &handle) != kOfxStatOK) {
        handle = nullptr;
    }
    return {host, handle};
}

void setLabel(const Properties& properties, const std::string& label) {
    properties.setString(kOfxPropLabel, label);
    properties.setString(kOfxPropShortLabel, label);
    properties.setString(kOfxPropLongLabel, label);
}

void declareGroup(const Host& host, OfxParamSetHandle set, ParameterPage page) {
    const Properties group = define(host, set, kOfxParamTypeGroup, groupName(page));
    setLabel(group, std::string(groupLabel(page)));
    group.setInt(kOfxParamPropGroupOpen, page == groupPages().front() ? 1 : 0);
}

void setReal(const Properties& properties, const DeclaredParameter& parameter) {
    properties.setString(kOfxParamPropDoubleType, kOfxParamDoubleTypePlain);
    properties.setDouble(kOfxParamPropDefault, parameter.defaults[0]);
    properties.setInt(kOfxParamPropDigits, parameter.decimals);
    properties.setDouble(kOfxParamPropMin, parameter.range->low);
    properties.setDouble(kOfxParamPropMax, parameter.range->high);
    properties.setDouble(kOfxParamPropDisplayMin, parameter.displayRange->low);
    properties.setDouble(kOfxParamPropDisplayMax, parameter.displayRange->high);
}

void setWhole(const Properties& properties, const DeclaredParameter& parameter) {
    properties.setInt(kOfxParamPropDefault, static_cast<int>(parameter.defaults[0]));
    if (!parameter.range) return;
    properties.setInt(kOfxParamPropMin, static_cast<int>(parameter.range->low));
    properties.setInt(kOfxParamPropMax, static_cast<int>(parameter.range->high));
    properties.setInt(kOfxParamPropDisplayMin, static_cast<int>(parameter.displayRange->low));
    properties.setInt(kOfxParamPropDisplayMax, static_cast<int>(parameter.displayRange->high));
}

void setChoices(const Properties& properties, const DeclaredParameter& parameter) {
    int index = 0;
    for (const std::string& label : parameter.choices) {
        properties.requireString(kOfxParamPropChoiceOption, label, index++);
    }
    setWhole(properties, parameter);
}

void setColour(const Properties& properties, const DeclaredParameter& parameter) {
    int index = 0;
    for (const double channel : parameter.defaults) {
        properties.setDouble(kOfxParamPropDefault, channel, index++);
    }
}

void setValues(const Properties& properties, const DeclaredParameter& parameter) {
    switch (parameter.kind) {
        case DeclaredKind::Real:
            return setReal(properties, parameter);
        case DeclaredKind::Integer:
        case DeclaredKind::CheckBox:
            return setWhole(properties, parameter);
        case DeclaredKind::Choice:
            return setChoices(properties, parameter);
        case DeclaredKind::Colour:
            return setColour(properties, parameter);
        case DeclaredKind::Button:
            break;
    }
}

void setBehaviour(const Properties& properties, const DeclaredParameter& parameter) {
    if (parameter.kind == DeclaredKind::Button) return;
    const bool animated =
        parameter.kind == DeclaredKind::Real || parameter.kind == DeclaredKind::Colour;
    properties.setInt(kOfxParamPropAnimates, animated ? 1 : 0);
    if (!parameter.rendered) properties.setInt(kOfxParamPropEvaluateOnChange, 0);
    // Undo of a preset brings the values back. If it chose the preset again too, that would be
    // applied once more.
    if (parameter.row && parameter.row->id == ParameterId::Presets) {
        properties.setInt(kOfxParamPropCanUndo, 0);
    }
    // Frames depend on values at earlier times.
    if (animated) properties.setString(kOfxParamPropCacheInvalidation, kOfxParamInvalidateAll);
}

void declareParameter(const Host& host, OfxParamSetHandle set, const DeclaredParameter& parameter) {
    const Properties properties = define(host, set, typeOf(parameter.kind), parameter.name);
    if (!properties.handle()) {
        if (!parameter.rendered) return;
        throw Failure(kOfxStatErrMissingHostFeature,
                      "the host refuses the parameter " + parameter.label);
    }
    setLabel(properties, parameter.label);
    properties.setString(kOfxParamPropHint, parameter.hint);
    properties.setString(kOfxParamPropScriptName, parameter.name);
    properties.setString(kOfxParamPropParent, groupName(parameter.page));
    setValues(properties, parameter);
    setBehaviour(properties, parameter);
}

}  // namespace

void declareParameters(const Action& action) {
    OfxParamSetHandle set = nullptr;
    if (action.host.effect->getParamSet(action.effect, &set) != kOfxStatOK || !set) {
        throw Failure(kOfxStatErrMissingHostFeature, "the host gives no set of parameters");
    }
    for (const ParameterPage page : groupPages()) declareGroup(action.host, set, page);
    for (const DeclaredParameter& parameter : parameterList()) {
        declareParameter(action.host, set, parameter);
    }
}

}  // namespace ruvex::openfx
