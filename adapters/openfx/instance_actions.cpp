#include "adapters/openfx/instance_actions.h"

#include "adapters/openfx/chosen_look.h"
#include "adapters/openfx/control_state.h"
#include "adapters/openfx/parameter_edits.h"

namespace ruvex::openfx {
namespace {

/// Hosts without a person before them show no controls.
bool showsControls(const Host& host) {
    return Properties(host, host.properties).getInt(kOfxImageEffectHostPropIsBackground, 0) == 0;
}

void applyChosen(const Instance& instance, const DeclaredParameter& choice, double time) {
    if (const looks::Look* look = chosenLook(instance.parameters(), time)) {
        return applyLook(instance, *look, time);
    }
    const HostParameter parameter = instance.parameters().find(choice.name);
    if (parameter.wholeAt(time).value_or(0) != 0) parameter.setWhole(0);
}

/// Whether the change was a look or a Reset.
bool edit(const Instance& instance, const DeclaredParameter& changed, double time) {
    if (changed.purpose == Purpose::Reset) {
        resetPage(instance, changed.page, time);
        return true;
    }
    const bool presets = changed.row && changed.row->id == ParameterId::Presets;
    if (presets) applyChosen(instance, changed, time);
    return presets;
}

}  // namespace

OfxStatus createInstance(const Action& action) {
    const Instance instance(action);
    if (showsControls(action.host)) updateControls(instance, 0.0);
    return kOfxStatOK;
}

OfxStatus destroyInstance(const Action&) {
    return kOfxStatOK;
}

OfxStatus instanceChanged(const Action& action) {
    if (action.in.getString(kOfxPropType) != kOfxTypeParameter) return kOfxStatReplyDefault;
    const std::string name = action.in.getString(kOfxPropName);
    const DeclaredParameter* const changed = findDeclared(name);
    if (!changed) return kOfxStatReplyDefault;
    const Instance instance(action);
    const double time = action.in.getDouble(kOfxPropTime, 0.0);
    const bool byUser = action.in.getString(kOfxPropChangeReason) == kOfxChangeUserEdited;
    const bool edited = byUser && edit(instance, *changed, time);
    if (!edited && !decidesControls(name)) return kOfxStatReplyDefault;
    updateControls(instance, time);
    return kOfxStatOK;
}

OfxStatus endInstanceChanged(const Action& action) {
    updateControls(Instance(action), 0.0);
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
