// A viewer tool that records the calls of its host.

#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sdk/viewer/interactive_tool.h"

namespace ruvex::test {

/// Records each call by name, in its own list and in one that several tools share, and then calls
/// the base. Fails the call that a test names, instead of calling the base. The base's functions
/// for tools are public here.
class ScriptedTool final : public CDSInteractiveTool {
public:
    using Calls = std::vector<std::string>;

    static inline std::atomic<int> alive = 0;

    /// In the shared list, `name` and a blank stand before each call.
    explicit ScriptedTool(std::string name = {}, Calls* shared = nullptr)
        : name_(std::move(name)), shared_(shared) {
        ++alive;
    }

    HRESULT OnRender(IViewerSurface* surface) override {
        return called("OnRender", [&] { return CDSInteractiveTool::OnRender(surface); });
    }
    HRESULT OnPropertyChanged(const GUID& id, const DSVARIANT* value) override {
        changedId = id;
        changedValue = value ? *value : DSVARIANT{};
        return called("OnPropertyChanged",
                      [&] { return CDSInteractiveTool::OnPropertyChanged(id, value); });
    }
    HRESULT OnOnTimeChange(double seconds) override {
        time = seconds;
        return called("OnOnTimeChange",
                      [&] { return CDSInteractiveTool::OnOnTimeChange(seconds); });
    }
    HRESULT OnPenDown(const tagVWPENEVENT* event) override {
        return penCalled("OnPenDown", event, [&] { return CDSInteractiveTool::OnPenDown(event); });
    }
    HRESULT OnPenMove(const tagVWPENEVENT* event) override {
        return penCalled("OnPenMove", event, [&] { return CDSInteractiveTool::OnPenMove(event); });
    }
    HRESULT OnPenUp(const tagVWPENEVENT* event) override {
        return penCalled("OnPenUp", event, [&] { return CDSInteractiveTool::OnPenUp(event); });
    }
    HRESULT OnLinkToOperator(IUnknown* object) override {
        return called("OnLinkToOperator",
                      [&] { return CDSInteractiveTool::OnLinkToOperator(object); });
    }
    HRESULT OnUnlinkFromOperator() override {
        return called("OnUnlinkFromOperator",
                      [&] { return CDSInteractiveTool::OnUnlinkFromOperator(); });
    }
    HRESULT OnLinkToViewer(IUnknown* viewer) override {
        return called("OnLinkToViewer", [&] { return CDSInteractiveTool::OnLinkToViewer(viewer); });
    }
    HRESULT OnUnlinkFromViewer() override {
        return called("OnUnlinkFromViewer",
                      [&] { return CDSInteractiveTool::OnUnlinkFromViewer(); });
    }

    using CDSInteractiveTool::GetAnimatedProperty;
    using CDSInteractiveTool::GetViewerWindow;
    using CDSInteractiveTool::InvalidateLayer;
    using CDSInteractiveTool::isAttached;
    using CDSInteractiveTool::OnBeginInteraction;
    using CDSInteractiveTool::OnDoInteraction;
    using CDSInteractiveTool::operatorObject;
    using CDSInteractiveTool::SetAnimatedProperty;
    using CDSInteractiveTool::SetInteractionName;
    using CDSInteractiveTool::TerminateInteraction;

    Calls calls;
    std::string failing;                                  ///< The name of the call that fails.
    std::function<void(const std::string& call)> during;  ///< Called inside each call.
    std::function<void()> inDestructor;
    GUID changedId{};
    DSVARIANT changedValue{};
    double time = -1.0;
    tagVWPENEVENT pen{};  ///< The last event.

private:
    ~ScriptedTool() override {
        --alive;
        if (inDestructor) inDestructor();
    }

    template <class Base>
    HRESULT called(const std::string& call, Base base) {
        calls.push_back(call);
        if (shared_) shared_->push_back(name_ + " " + call);
        // A copy, since the test may replace it in the call.
        if (const auto now = during) now(call);
        return call == failing ? E_FAIL : base();
    }

    template <class Base>
    HRESULT penCalled(const std::string& call, const tagVWPENEVENT* event, Base base) {
        if (event) pen = *event;
        return called(call, base);
    }

    std::string name_;
    Calls* shared_;
};

inline ComPtr<ScriptedTool> makeTool(std::string name = {}, ScriptedTool::Calls* shared = nullptr) {
    return ComPtr<ScriptedTool>::attach(new ScriptedTool(std::move(name), shared));
}

}  // namespace ruvex::test
