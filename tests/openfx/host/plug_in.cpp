#include "tests/openfx/host/plug_in.h"

#include <algorithm>
#include <exception>

namespace ruvex::ofxhost {
PlugIn::PlugIn(Host& host, OfxPlugin& plugIn, std::string file)
    : host_(host), ofx_(plugIn), file_(std::move(file)) {
    ofx_.setHost(host_.ofx());
}

OfxStatus PlugIn::call(const char* action, const void* handle, ActionSets sets) {
    if (host_.traits.tamper && sets.in) host_.traits.tamper(*sets.in);
    if (host_.traits.tamper && sets.out) host_.traits.tamper(*sets.out);
    try {
        return ofx_.mainEntry(action, handle, sets.in ? sets.in->handle() : nullptr,
                              sets.out ? sets.out->handle() : nullptr);
    } catch (const std::exception& error) {
        host_.fault(std::string("an exception left ") + action + ": " + error.what());
    } catch (...) {
        host_.fault(std::string("an exception left ") + action);
    }
    return kOfxStatErrFatal;
}

OfxStatus PlugIn::load() {
    const OfxStatus status = call(kOfxActionLoad, nullptr);
    if (isDone(status)) ++loads_;
    return status;
}

OfxStatus PlugIn::unload() {
    loads_ = std::max(0, loads_ - 1);
    return call(kOfxActionUnload, nullptr);
}

void PlugIn::unloadAll() {
    while (loads_ > 0) unload();
}

OfxStatus PlugIn::describe() {
    auto description = std::make_unique<Effect>(host_, file_);
    const OfxStatus status = call(kOfxActionDescribe, description->handle());
    if (isDone(status)) description_ = std::move(description);
    return status;
}

OfxStatus PlugIn::describeInContext(const std::string& context) {
    auto description = std::make_unique<Effect>(*description_, context);
    PropertySet in(host_);
    in.add(kOfxImageEffectPropContext, text(context), Writer::Host);
    const OfxStatus status =
        call(kOfxImageEffectActionDescribeInContext, description->handle(), {&in, nullptr});
    if (description->parameters.openBlocks() > 0) host_.fault("an edit block stays open");
    if (isDone(status)) contexts_[context] = std::move(description);
    return status;
}

OfxStatus PlugIn::prepare(const std::string& context) {
    OfxStatus status = load();
    if (isDone(status)) status = describe();
    if (isDone(status)) status = describeInContext(context);
    return isDone(status) ? kOfxStatOK : status;
}

const Effect* PlugIn::description(const std::string& context) const {
    const auto found = contexts_.find(context);
    return found == contexts_.end() ? nullptr : found->second.get();
}

}  // namespace ruvex::ofxhost
