// A binary with plug-ins, and one plug-in of it from Load to Unload.

#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "sdk/com/dynamic_library.h"
#include "tests/openfx/host/effect.h"
#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {

/// A loaded .ofx file.
class Binary {
public:
    /// The file itself, or the folder of a bundle, in which the file for this system is taken.
    /// Throws std::runtime_error if there is none, if it cannot be loaded, or if it lacks the two
    /// functions of the interface.
    explicit Binary(const std::filesystem::path& fileOrBundle);

    int count() const { return count_(); }
    /// Null beyond the count.
    OfxPlugin* plugIn(int index) const { return get_(index); }
    const std::filesystem::path& file() const { return file_; }

private:
    std::filesystem::path file_;
    std::unique_ptr<DSDynamicLibrary> library_;
    int (*count_)() = nullptr;
    OfxPlugin* (*get_)(int) = nullptr;
};

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

    OfxStatus load() { return call(kOfxActionLoad, nullptr); }
    OfxStatus unload() { return call(kOfxActionUnload, nullptr); }
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
    std::unique_ptr<Effect> description_;
    std::map<std::string, std::unique_ptr<Effect>> contexts_;
};

inline bool isDone(OfxStatus status) {
    return status == kOfxStatOK || status == kOfxStatReplyDefault;
}

}  // namespace ruvex::ofxhost
