#include "adapters/openfx/overlay_entry.h"

#include <string_view>

#include "adapters/openfx/crop_interact.h"
#include "adapters/openfx/guarded_entry.h"
#include "adapters/openfx/parameter_names.h"
#include "parameters/parameter_table.h"

namespace ruvex::openfx {
namespace {

/// The parameters whose change moves or hides the lines.
constexpr ParameterId kShown[] = {ParameterId::CropLeft, ParameterId::CropRight,
                                  ParameterId::CropBottom, ParameterId::CropTop,
                                  ParameterId::HideOverlayControls};

OfxStatus createInteract(const InteractAction& action) {
    const Properties properties = interactProperties(action);
    int index = 0;
    for (const ParameterId id : kShown) {
        properties.setString(kOfxInteractPropSlaveToParam, scriptName(row(id)), index++);
    }
    return CropInteract(action).create();
}

OfxStatus describeInteract(const InteractAction&) {
    return kOfxStatOK;
}

template <OfxStatus (CropInteract::*Function)() const>
OfxStatus handled(const InteractAction& action) {
    return (CropInteract(action).*Function)();
}

struct HandledInteract {
    std::string_view name;
    OfxStatus (*handler)(const InteractAction& action);
};

constexpr HandledInteract kInteractActions[] = {
    {kOfxActionDescribe, describeInteract},
    {kOfxActionCreateInstance, createInteract},
    {kOfxActionDestroyInstance, handled<&CropInteract::destroy>},
    {kOfxInteractActionDraw, handled<&CropInteract::draw>},
    {kOfxInteractActionPenDown, handled<&CropInteract::penDown>},
    {kOfxInteractActionPenMotion, handled<&CropInteract::penMotion>},
    {kOfxInteractActionPenUp, handled<&CropInteract::penUp>},
    {kOfxInteractActionLoseFocus, handled<&CropInteract::loseFocus>},
};

OfxStatus dispatchInteract(std::string_view name, const void* handle, OfxPropertySetHandle in) {
    for (const HandledInteract& known : kInteractActions) {
        if (known.name != name) continue;
        const auto host = currentHost();
        if (!host || !host->interact) return kOfxStatErrMissingHostFeature;
        if (!handle) return kOfxStatErrBadHandle;
        const auto interact = static_cast<OfxInteractHandle>(const_cast<void*>(handle));
        return known.handler({*host, interact, {*host, in}});
    }
    return kOfxStatReplyDefault;
}

/// The entry point of the overlay, which the host calls.
OfxStatus enterInteract(const char* name, const void* handle, OfxPropertySetHandle in,
                        OfxPropertySetHandle) {
    return guardedEntry(name, [&] { return dispatchInteract(name, handle, in); });
}

}  // namespace

void declareOverlay(const Host& host, const Properties& effect) {
    const Properties ofHost(host, host.properties);
    if (!host.interact || ofHost.getInt(kOfxImageEffectPropSupportsOverlays, 0) == 0) return;
    effect.setPointer(kOfxImageEffectPluginPropOverlayInteractV1,
                      reinterpret_cast<void*>(enterInteract));
}

}  // namespace ruvex::openfx
