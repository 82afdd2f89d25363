// What a host has and lacks, and where it is hostile.

#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

class PropertySet;

/// What a request for a frame at another time than the rendered one gives.
enum class OtherTimes {
    Given,     ///< That frame.
    Refused,   ///< kOfxStatFailed.
    SameFrame  ///< The frame at hand, as if it were that one.
};

/// A call of one of the host's functions by a plug-in. `name` is a property, a parameter or a clip,
/// where the function has one.
struct HostCall {
    std::string_view function;
    std::string_view name;
};

struct HostTraits {
    /// "OfxMessageSuite" for each version of it, "OfxMessageSuite 2" for one.
    std::set<std::string> missingSuites{};
    /// Neither hosts, effects, clips, parameters, images nor arguments have these.
    std::set<std::string, std::less<>> missingProperties{};
    OtherTimes otherTimes = OtherTimes::Given;
    bool temporalAccess = true;
    bool overlays = true;
    bool background = false;
    /// A value that the plug-in sets causes an InstanceChanged action with kOfxChangePluginEdited.
    bool tellsPlugInEdits = true;
    /// paramGetValueAtTime gives the value at the current time for each time.
    bool ignoresTimes = false;
    /// Undo steps have changes of parameters whose kOfxParamPropCanUndo is 0, too.
    bool ignoresCanUndo = false;
    /// Answers for functions; kOfxStatOK lets the call pass. Null lets all pass. Any thread.
    std::function<OfxStatus(const HostCall&)> intercept{};
    /// Changes the properties of an image or of an action's arguments before the plug-in sees them.
    /// Any thread.
    std::function<void(PropertySet&)> tamper{};
};

}  // namespace ruvex::ofxhost
