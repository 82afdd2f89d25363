#include "tests/openfx/host/instance.h"

#include <algorithm>

namespace ruvex::ofxhost {

Instance::Instance(PlugIn& plugIn, InstanceSetup setup)
    : plugIn_(plugIn), setup_(std::move(setup)) {
    if (!plugIn_.description(setup_.context) &&
        !isDone(plugIn_.describeInContext(setup_.context))) {
        return;
    }
    effect_ = std::make_unique<Effect>(*plugIn_.description(setup_.context), setup_.project);
    if (Clip* source = effect_->clip(kOfxImageEffectSimpleSourceClipName)) {
        source->connect(setup_.source);
    }
    if (Clip* output = effect_->clip(kOfxImageEffectOutputClipName)) {
        ClipSetup like = setup_.source;
        like.picture = nullptr;
        output->connect(like);
    }
    if (host().traits.tellsPlugInEdits) {
        parameters().onPlugInEdit = [this](Parameter& parameter) {
            callChanged(kOfxTypeParameter, parameter.name(), kOfxChangePluginEdited);
        };
    }
    status_ = call(kOfxActionCreateInstance);
}

Instance::~Instance() {
    if (effect_ && isDone(status_)) call(kOfxActionDestroyInstance);
}

OfxStatus Instance::call(const char* action, ActionSets sets) {
    const OfxStatus status = plugIn_.call(action, effect_->handle(), sets);
    return status;
}

void Instance::set(const std::string& name, const std::vector<double>& numbers) {
    parameters().edit(parameters()[name], [&](Parameter& parameter) {
        parameter.deleteAllKeys();
        parameter.setNumbers(numbers);
    });
    tellChanged(kOfxTypeParameter, name, kOfxChangeUserEdited);
}

void Instance::set(const std::string& name, const std::string& value) {
    parameters().edit(parameters()[name], [&](Parameter& parameter) { parameter.setText(value); });
    tellChanged(kOfxTypeParameter, name, kOfxChangeUserEdited);
}

void Instance::setKeys(const std::string& name, const std::vector<Key>& keys) {
    parameters().edit(parameters()[name], [&](Parameter& parameter) {
        parameter.deleteAllKeys();
        for (const Key& key : keys) parameter.setKey(key);
    });
    tellChanged(kOfxTypeParameter, name, kOfxChangeUserEdited);
}

void Instance::press(const std::string& button) {
    tellChanged(kOfxTypeParameter, parameters()[button].name(), kOfxChangeUserEdited);
}

bool Instance::undo() {
    if (parameters().steps().empty()) return false;
    const UndoStep step = parameters().steps().back();
    parameters().undo();
    for (const auto& change : step.changes) {
        tellChanged(kOfxTypeParameter, change.parameter->name(), kOfxChangeUserEdited);
    }
    return true;
}

bool Instance::redo() {
    if (!parameters().redo()) return false;
    const UndoStep step = parameters().steps().back();
    for (const auto& change : step.changes) {
        tellChanged(kOfxTypeParameter, change.parameter->name(), kOfxChangeUserEdited);
    }
    return true;
}

OfxStatus Instance::tellChanged(const std::string& type, const std::string& name,
                                const std::string& reason) {
    PropertySet in(host());
    in.add(kOfxPropChangeReason, text(reason), Writer::Host);
    call(kOfxActionBeginInstanceChanged, {&in, nullptr});
    const OfxStatus status = callChanged(type, name, reason);
    call(kOfxActionEndInstanceChanged, {&in, nullptr});
    checkBlocks(kOfxActionInstanceChanged);
    return status;
}

OfxStatus Instance::callChanged(const std::string& type, const std::string& name,
                                const std::string& reason) {
    // A plug-in that answers its own edits with further edits never ends.
    constexpr int kDeepest = 8;
    if (changeDepth_ >= kDeepest) {
        host().fault("edits of the plug-in cause edits of the plug-in: " + name);
        return kOfxStatFailed;
    }
    PropertySet in(host());
    in.add(kOfxPropType, text(type), Writer::Host);
    in.add(kOfxPropName, text(name), Writer::Host);
    in.add(kOfxPropChangeReason, text(reason), Writer::Host);
    in.add(kOfxPropTime, reals({host().time}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({1.0, 1.0}), Writer::Host);
    ++changeDepth_;
    const OfxStatus status = call(kOfxActionInstanceChanged, {&in, nullptr});
    --changeDepth_;
    return status;
}

void Instance::checkBlocks(const char* action) {
    if (parameters().openBlocks() > 0) {
        host().fault(std::string("an edit block stays open after ") + action);
    }
}

}  // namespace ruvex::ofxhost
