// One plug-in of a binary, from Load to Unload.

#pragma once

#include <map>
#include <memory>
#include <string>

#include "tests/openfx/host/effect.h"
#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {

/// What an action gets. Either set may be null.
struct ActionSets {
    PropertySet* in = nullptr;
    PropertySet* out = nullptr;
};

/// One plug-in in one host.
class PlugIn {
public:
    /// Sets the host. `plugIn` outlives this object.
    PlugIn(Host& host, OfxPlugin& plugIn, std::string file);
    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;

    Host& host() const { return host_; }
    OfxPlugin& ofx() const { return ofx_; }

    /// Calls the main entry and remembers as a fault if an exception leaves it.
    OfxStatus call(const char* action, const void* handle, ActionSets sets = {});

    OfxStatus load();
    OfxStatus unload();
    /// Unloads as often as the plug-in was loaded.
    void unloadAll();
    /// Describes into a new description, which replaces the one before if the plug-in succeeds.
    OfxStatus describe();
    /// The same for a context; describe() comes first.
    OfxStatus describeInContext(const std::string& context);
    /// Load, describe and describe in the context; the first answer that is neither kOfxStatOK nor
    /// kOfxStatReplyDefault, or kOfxStatOK.
    OfxStatus prepare(const std::string& context = kOfxImageEffectContextFilter);

    /// The description; null before describe().
    const Effect* description() const { return description_.get(); }
    /// The description in a context; null before describeInContext().
    const Effect* description(const std::string& context) const;

private:
    Host& host_;
    OfxPlugin& ofx_;
    std::string file_;
    int loads_ = 0;  ///< That were not followed by an unload.
    std::unique_ptr<Effect> description_;
    std::map<std::string, std::unique_ptr<Effect>> contexts_;
};

inline bool isDone(OfxStatus status) {
    return status == kOfxStatOK || status == kOfxStatReplyDefault;
}

}  // namespace ruvex::ofxhost
