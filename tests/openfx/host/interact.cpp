#include "tests/openfx/host/interact.h"

#include "tests/openfx/host/whole_number.h"

namespace ruvex::ofxhost {
namespace {

OfxPluginEntryPoint* entryOf(const PlugIn& plugIn) {
    const Effect* description = plugIn.description();
    if (!description) return nullptr;
    return reinterpret_cast<OfxPluginEntryPoint*>(
        description->properties.pointer(kOfxImageEffectPluginPropOverlayInteractV1));
}

void addInteractProperties(PropertySet& set, Effect& effect, const ViewSetup& view) {
    set.add(kOfxPropType, text("OfxTypeInteract"), Writer::Host);
    set.add(kOfxPropEffectInstance, {PropertyValue(static_cast<void*>(effect.handle()))},
            Writer::Host);
    set.add(kOfxPropInstanceData, {PropertyValue(static_cast<void*>(nullptr))});
    set.add(kOfxInteractPropPixelScale, reals({view.pixelScale.x, view.pixelScale.y}),
            Writer::Host);
    set.add(kOfxInteractPropBackgroundColour, reals({0.0, 0.0, 0.0}), Writer::Host);
    set.addGrowing(kOfxInteractPropSlaveToParam, PropertyType::String);
}

}  // namespace

bool Interact::isOffered(const PlugIn& plugIn) {
    return entryOf(plugIn) != nullptr;
}

Interact::Interact(Instance& instance, ViewSetup viewSetup)
    : view(viewSetup),
      properties(instance.host()),
      instance_(instance),
      entry_(entryOf(instance.plugIn())) {
    if (!entry_) return;
    addInteractProperties(properties, instance.effect(), view);
    status_ = call(kOfxActionDescribe, nullptr);
    if (isDone(status_)) status_ = call(kOfxActionCreateInstance, nullptr);
}

Interact::~Interact() {
    if (isDone(status_)) call(kOfxActionDestroyInstance, nullptr);
}

OfxStatus Interact::call(const char* action, PropertySet* in) {
    if (host().traits.tamper && in) host().traits.tamper(*in);
    try {
        return entry_(action, handle(), in ? in->handle() : nullptr, nullptr);
    } catch (...) {
        host().fault(std::string("an exception left an interact's ") + action);
        return kOfxStatErrFatal;
    }
}

PropertySet Interact::arguments() const {
    PropertySet in(host());
    in.add(kOfxPropEffectInstance, {PropertyValue(static_cast<void*>(instance_.effect().handle()))},
           Writer::Host);
    in.add(kOfxPropTime, reals({view.time}), Writer::Host);
    in.add(kOfxImageEffectPropRenderScale, reals({view.renderScale.x, view.renderScale.y}),
           Writer::Host);
    in.add(kOfxInteractPropPixelScale, reals({view.pixelScale.x, view.pixelScale.y}), Writer::Host);
    in.add(kOfxInteractPropBackgroundColour, reals({0.0, 0.0, 0.0}), Writer::Host);
    return in;
}

OfxStatus Interact::draw() {
    PropertySet in = arguments();
    return call(kOfxInteractActionDraw, &in);
}

OfxStatus Interact::pen(const char* action, const OfxPointD& point, double pressure) {
    PropertySet in = arguments();
    const int x = wholeNumber((point.x - view.corner.x) / view.pixelScale.x);
    const int y = wholeNumber((point.y - view.corner.y) / view.pixelScale.y);
    in.add(kOfxInteractPropPenPosition, reals({point.x, point.y}), Writer::Host);
    in.add(kOfxInteractPropPenViewportPosition, ints({x, y}), Writer::Host);
    in.add(kOfxInteractPropPenPressure, reals({pressure}), Writer::Host);
    const OfxStatus status = call(action, &in);
    if (instance_.parameters().openBlocks() > 0 && action == std::string(kOfxInteractActionPenUp)) {
        host().fault("an edit block stays open after a pen was lifted");
    }
    return status;
}

OfxStatus Interact::focus(bool gained) {
    PropertySet in = arguments();
    return call(gained ? kOfxInteractActionGainFocus : kOfxInteractActionLoseFocus, &in);
}

}  // namespace ruvex::ofxhost
