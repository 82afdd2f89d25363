// The application that a plug-in sees: its properties, its suites, and what it noticed.

#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tests/openfx/host/host_traits.h"
#include "tests/openfx/host/property_set.h"

namespace ruvex::ofxhost {

/// A message to the user.
struct Message {
    std::string type;
    std::string text;
    bool persistent = false;
};

/// Outlives all plug-ins that it loads. The traits are set before a plug-in is loaded; single ones
/// may be changed between calls.
class Host {
public:
    explicit Host(HostTraits hostTraits = {});
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    OfxHost* ofx() { return &ofx_; }
    PropertySet& properties() { return *properties_; }

    /// Remembers something that a plug-in must not do. Any thread.
    void fault(const std::string& what);
    std::vector<std::string> faults() const;
    void clearFaults();

    void addMessage(Message message);
    void clearPersistentMessage();
    std::vector<Message> messages() const;

    /// The current time of the application, which values without a time refer to.
    double time = 0.0;
    HostTraits traits;

    /// kOfxStatOK, or the answer that the traits give instead of a function's work.
    OfxStatus intercept(std::string_view function, std::string_view name = {}) const;
    const void* suite(const std::string& name, int version) const;

private:
    std::unique_ptr<PropertySet> properties_;
    OfxHost ofx_{};
    mutable std::mutex mutex_;
    std::vector<std::string> faults_;
    std::vector<Message> messages_;
};

}  // namespace ruvex::ofxhost
