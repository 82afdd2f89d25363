// The functions that a host calls. No exception leaves them: hosts are written in C.

#include "adapters/openfx/plug_in.h"

#include <algorithm>
#include <bit>
#include <string_view>

#include "adapters/openfx/clip_actions.h"
#include "adapters/openfx/crop_interact.h"
#include "adapters/openfx/describe.h"
#include "adapters/openfx/effect_pool.h"
#include "adapters/openfx/frames_needed.h"
#include "adapters/openfx/guarded_entry.h"
#include "adapters/openfx/instance_actions.h"
#include "adapters/openfx/render_action.h"

using namespace ruvex::openfx;

namespace {

using Handler = OfxStatus(const Action& action);

struct HandledAction {
    std::string_view name;
    Handler* handler;
};

constexpr HandledAction kHandled[] = {
    {kOfxActionDescribe, describe},
    {kOfxImageEffectActionDescribeInContext, describeInContext},
    {kOfxActionCreateInstance, createInstance},
    {kOfxActionDestroyInstance, destroyInstance},
    {kOfxActionInstanceChanged, instanceChanged},
    {kOfxActionEndInstanceChanged, endInstanceChanged},
    {kOfxImageEffectActionGetRegionOfDefinition, regionOfDefinition},
    {kOfxImageEffectActionGetRegionsOfInterest, regionsOfInterest},
    {kOfxImageEffectActionGetClipPreferences, clipPreferences},
    {kOfxImageEffectActionGetFramesNeeded, framesNeeded},
    {kOfxImageEffectActionRender, render},
};

Handler* handlerOf(std::string_view name) {
    for (const HandledAction& handled : kHandled) {
        if (handled.name == name) return handled.handler;
    }
    return nullptr;
}

/// Actions that need no more than this answer. There is no state between frames: a sequence begins
/// and ends with nothing to do, and there is none to store.
bool needsNoHandler(std::string_view name) {
    constexpr std::string_view kNames[] = {
        kOfxActionSyncPrivateData, kOfxActionBeginInstanceChanged,
        kOfxImageEffectActionBeginSequenceRender, kOfxImageEffectActionEndSequenceRender};
    return std::ranges::find(kNames, name) != std::end(kNames);
}

OfxStatus perform(Handler& handler, const void* handle, OfxPropertySetHandle in,
                  OfxPropertySetHandle out) {
    const auto host = currentHost();
    if (!host) return kOfxStatErrMissingHostFeature;
    if (!handle) return kOfxStatErrBadHandle;
    // Entry points get handles of all kinds as pointers to constants.
    const auto effect = std::bit_cast<OfxImageEffectHandle>(handle);
    return handler({*host, effect, {*host, in}, {*host, out}});
}

/// Some hosts load once more than they unload, and render in between.
void unload() {
    unloadHost();
    if (currentHost()) return effectPool().clear();
    closeCropBox();
    closeEffectPool();
}

OfxStatus dispatch(std::string_view name, const void* handle, OfxPropertySetHandle in,
                   OfxPropertySetHandle out) {
    if (name == kOfxActionLoad) return loadHost();
    if (name == kOfxActionPurgeCaches) return effectPool().clear(), kOfxStatOK;
    if (name == kOfxActionUnload) return unload(), kOfxStatOK;
    if (needsNoHandler(name)) return kOfxStatOK;
    Handler* const handler = handlerOf(name);
    return handler ? perform(*handler, handle, in, out) : kOfxStatReplyDefault;
}

OfxStatus enter(const char* name, const void* handle, OfxPropertySetHandle in,
                OfxPropertySetHandle out) {
    return guardedEntry(name, [&] { return dispatch(name, handle, in, out); });
}

void rememberHost(OfxHost* host) {
    setHost(host);
}

OfxPlugin plugIn = {.pluginApi = kOfxImageEffectPluginApi,
                    .apiVersion = 1,
                    .pluginIdentifier = "org.v-ruvex.television",
                    .pluginVersionMajor = 1,
                    .pluginVersionMinor = 0,
                    .setHost = rememberHost,
                    .mainEntry = enter};

}  // namespace

RUVEX_OPENFX_EXPORT int OfxGetNumberOfPlugins() {
    return 1;
}

RUVEX_OPENFX_EXPORT OfxPlugin* OfxGetPlugin(int index) {
    return index == 0 ? &plugIn : nullptr;
}

RUVEX_OPENFX_EXPORT OfxStatus OfxSetHost(const OfxHost* host) {
    setHost(host);
    return kOfxStatOK;
}
