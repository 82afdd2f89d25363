// How tools are linked to the viewer while contexts and viewers come and go.

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "sdk/viewer/viewer_controller.h"
#include "tests/sdk/scripted_viewer.h"
#include "tests/support/copy_effect.h"
#include "tests/support/plain_object.h"
#include "tests/support/reference_count.h"
#include "tests/support/scripted_tool.h"

namespace ruvex::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ViewerLinks : public testing::Test {
protected:
    ~ViewerLinks() override {
        for (const VWContext& context : VWControllerContexts()) {
            ADD_FAILURE() << "context " << context.id << " is left";
        }
        EXPECT_EQ(VWControllerSetViewer(nullptr), S_OK);
        EXPECT_EQ(countOf(*viewer), 1u);
        EXPECT_EQ(countOf(*object()), 1u);
    }

    IUnknown* object() { return static_cast<IDSProperties*>(effect.get()); }

    HRESULT push(IUnknown* tool, IUnknown* edited) {
        return VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, tool, edited, nullptr, nullptr,
                                       0.0, &id);
    }
    HRESULT push(const ComPtr<ScriptedTool>& tool) { return push(tool.get(), object()); }
    /// The context's identifier.
    ULONG pushed(const ComPtr<ScriptedTool>& tool) {
        EXPECT_EQ(push(tool), S_OK);
        return id;
    }
    static bool isLinked(ULONG context) {
        for (const VWContext& known : VWControllerContexts()) {
            if (known.id == context) return static_cast<bool>(known.viewer);
        }
        return false;
    }

    ScriptedTool::Calls log;
    ComPtr<CopyEffect> effect = ComPtr<CopyEffect>::attach(new CopyEffect);
    ComPtr<ScriptedViewer> viewer = makeViewer("viewer", &log);
    ULONG id = 0;
};

TEST_F(ViewerLinks, AreMadeBeforeThePushReturns) {
    ASSERT_EQ(VWControllerSetViewer(viewer.get()), S_OK);
    EXPECT_EQ(VWControllerViewer(), ComPtr<IDSViewer>(viewer));
    log.clear();
    const auto tool = makeTool("tool", &log);
    const ULONG context = pushed(tool);
    EXPECT_THAT(log, ElementsAre("tool OnLinkToOperator", "tool OnLinkToViewer", "viewer GetSite"));
    EXPECT_TRUE(tool->isAttached());
    EXPECT_EQ(tool->operatorObject(), object());
    EXPECT_EQ(VWControllerContexts()[0].viewer, ComPtr<IDSViewer>(viewer));
    log.clear();
    EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
    EXPECT_THAT(log, ElementsAre("viewer ReleasePen", "tool OnUnlinkFromViewer",
                                 "tool OnUnlinkFromOperator"));
    EXPECT_EQ(countOf(*tool), 1u);
}

TEST_F(ViewerLinks, AreNotMadeWithoutAViewer) {
    const auto tool = makeTool();
    const ULONG context = pushed(tool);
    EXPECT_FALSE(isLinked(context));
    EXPECT_EQ(VWControllerViewer(), nullptr);
    EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
    EXPECT_THAT(tool->calls, IsEmpty());
}

TEST_F(ViewerLinks, AreForToolsAlone) {
    VWControllerSetViewer(viewer.get());
    const auto plain = ComPtr<PlainObject>::attach(new PlainObject);
    EXPECT_EQ(push(plain.get(), plain.get()), S_OK) << "plain objects are accepted";
    EXPECT_FALSE(isLinked(id));
    EXPECT_EQ(VWControllerRemoveContext(id), S_OK);
}

TEST_F(ViewerLinks, ThatFailLeaveNoContext) {
    VWControllerSetViewer(viewer.get());
    const auto tool = makeTool("tool", &log);
    const auto expectRefused = [&](HRESULT status, HRESULT expected) {
        EXPECT_EQ(status, expected);
        EXPECT_THAT(VWControllerContexts(), IsEmpty());
        EXPECT_EQ(countOf(*tool), 1u);
        EXPECT_EQ(tool->operatorObject(), nullptr);
        EXPECT_FALSE(tool->isAttached());
        EXPECT_EQ(VWControllerRemoveContext(id), E_INVALIDARG);
        log.clear();
    };
    const auto plain = ComPtr<PlainObject>::attach(new PlainObject);
    expectRefused(push(tool.get(), plain.get()), E_NOINTERFACE);
    const auto unobservable = ComPtr<ScriptedProperties>::attach(new ScriptedProperties);
    expectRefused(push(tool.get(), unobservable.get()), E_OUTOFMEMORY);
    tool->failing = "OnLinkToOperator";
    expectRefused(push(tool), E_FAIL);
    tool->failing = "OnLinkToViewer";
    EXPECT_EQ(push(tool), E_FAIL);
    EXPECT_THAT(log, ElementsAre("tool OnLinkToOperator", "tool OnLinkToViewer",
                                 "tool OnUnlinkFromOperator"));
    tool->failing.clear();
    viewer->failing = "GetSite";
    expectRefused(push(tool), E_FAIL);
}

TEST_F(ViewerLinks, AreTakenAwayWhateverAToolSays) {
    VWControllerSetViewer(viewer.get());
    for (const char* call : {"OnUnlinkFromViewer", "OnUnlinkFromOperator"}) {
        const auto tool = makeTool("tool", &log);
        const ULONG context = pushed(tool);
        tool->failing = call;
        log.clear();
        viewer->failing = "ReleasePen";
        EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
        EXPECT_THAT(log, ElementsAre("viewer ReleasePen", "tool OnUnlinkFromViewer",
                                     "tool OnUnlinkFromOperator"));
        EXPECT_EQ(countOf(*tool), 1u);
    }
}

TEST_F(ViewerLinks, AreMadeByAViewerThatComesLaterWhichThenTellsTheTime) {
    const auto a = makeTool("a", &log), b = makeTool("b", &log);
    const ULONG first = pushed(a), second = pushed(b);
    ASSERT_EQ(VWControllerSetViewer(viewer.get()), S_OK);
    EXPECT_THAT(log, ElementsAre("a OnLinkToOperator", "a OnLinkToViewer", "viewer GetSite",
                                 "b OnLinkToOperator", "b OnLinkToViewer", "viewer GetSite",
                                 "viewer GetSite", "a OnOnTimeChange", "b OnOnTimeChange"));
    EXPECT_EQ(b->time, viewer->site->time);
    EXPECT_TRUE(isLinked(first) && isLinked(second));
    VWControllerRemoveContext(first);
    VWControllerRemoveContext(second);
}

TEST_F(ViewerLinks, ThatALaterViewerCannotMakeLeaveTheContext) {
    const auto a = makeTool("a"), b = makeTool("b"), c = makeTool("c");
    const ULONG first = pushed(a), second = pushed(b), third = pushed(c);
    a->failing = "OnLinkToViewer";
    b->failing = "OnOnTimeChange";
    EXPECT_EQ(VWControllerSetViewer(viewer.get()), S_OK);
    EXPECT_FALSE(isLinked(first));
    EXPECT_EQ(a->operatorObject(), nullptr);
    EXPECT_EQ(a->time, -1.0);
    EXPECT_TRUE(isLinked(second) && isLinked(third));
    EXPECT_EQ(c->time, 4.0);
    a->failing.clear();
    EXPECT_EQ(VWControllerSetViewer(viewer.get()), S_OK) << "the next viewer tries again";
    EXPECT_TRUE(isLinked(first));
    for (const ULONG context : {first, second, third}) VWControllerRemoveContext(context);
}

TEST_F(ViewerLinks, TellNoTimeWithoutOne) {
    const auto tool = makeTool();
    const ULONG context = pushed(tool);
    viewer->site->failing = "GetTime";
    EXPECT_EQ(VWControllerSetViewer(viewer.get()), S_OK);
    EXPECT_TRUE(isLinked(context));
    EXPECT_EQ(tool->time, -1.0);
    VWControllerRemoveContext(context);
}

TEST_F(ViewerLinks, GoWithTheViewer) {
    VWControllerSetViewer(viewer.get());
    const auto tool = makeTool("tool", &log);
    const ULONG context = pushed(tool);
    log.clear();
    EXPECT_EQ(VWControllerSetViewer(nullptr), S_OK);
    EXPECT_THAT(log, ElementsAre("viewer ReleasePen", "tool OnUnlinkFromViewer",
                                 "tool OnUnlinkFromOperator"));
    EXPECT_FALSE(isLinked(context));
    EXPECT_EQ(VWControllerViewer(), nullptr);
    EXPECT_EQ(countOf(*viewer), 1u);
    log.clear();
    VWControllerRemoveContext(context);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ViewerLinks, ChangeToAViewerThatReplacesTheFirst) {
    VWControllerSetViewer(viewer.get());
    const auto tool = makeTool("tool", &log);
    const ULONG context = pushed(tool);
    const auto second = makeViewer("second", &log);
    log.clear();
    EXPECT_EQ(VWControllerSetViewer(second.get()), S_OK);
    EXPECT_THAT(log, ElementsAre("viewer ReleasePen", "tool OnUnlinkFromViewer",
                                 "tool OnUnlinkFromOperator", "tool OnLinkToOperator",
                                 "tool OnLinkToViewer", "second GetSite", "second GetSite",
                                 "tool OnOnTimeChange"));
    EXPECT_EQ(countOf(*viewer), 1u);
    VWControllerRemoveContext(context);
    VWControllerSetViewer(nullptr);
    EXPECT_EQ(countOf(*second), 1u);
}

TEST_F(ViewerLinks, ReachEachToolAndGiveTheFirstFailure) {
    VWControllerSetViewer(viewer.get());
    const auto a = makeTool(), b = makeTool(), c = makeTool();
    const ULONG first = pushed(a), second = pushed(b), third = pushed(c);
    std::vector<IDSInteractiveTool*> called;
    const auto call = [&](IDSInteractiveTool& tool) -> HRESULT {
        called.push_back(&tool);
        if (&tool == a.get()) return S_FALSE;
        if (&tool == b.get()) return E_ABORT;
        throw std::bad_alloc();
    };
    EXPECT_EQ(VWControllerForEachTool(viewer.get(), call), E_ABORT);
    EXPECT_THAT(called, ElementsAre(a.get(), b.get(), c.get()));
    VWControllerRemoveContext(second);
    EXPECT_EQ(VWControllerForEachTool(viewer.get(), call), E_OUTOFMEMORY);
    called.clear();
    EXPECT_EQ(VWControllerForEachTool(makeViewer().get(), call), S_OK);
    EXPECT_EQ(VWControllerForEachTool(nullptr, call), S_OK);
    EXPECT_THAT(called, IsEmpty());
    VWControllerRemoveContext(first);
    VWControllerRemoveContext(third);
}

TEST_F(ViewerLinks, AreLookedUpAgainAfterEachTool) {
    VWControllerSetViewer(viewer.get());
    const auto a = makeTool(), b = makeTool(), c = makeTool();
    const ULONG first = pushed(a), second = pushed(b);
    ULONG third = 0;
    std::vector<IDSInteractiveTool*> called;
    VWControllerForEachTool(viewer.get(), [&](IDSInteractiveTool& tool) {
        called.push_back(&tool);
        VWControllerRemoveContext(first);
        VWControllerRemoveContext(second);
        third = pushed(c);
        return S_OK;
    });
    EXPECT_THAT(called, ElementsAre(a.get())) << "one is gone, and one is new";
    VWControllerRemoveContext(third);
}

class LinksInsideLinks : public ViewerLinks {
protected:
    /// Calls `action` once, in this call of the tool.
    static void once(const ComPtr<ScriptedTool>& tool, const std::string& when,
                     const std::function<void()>& action) {
        tool->during = [&tool = *tool, when, action](const std::string& call) {
            if (call != when) return;
            tool.during = nullptr;
            action();
        };
    }
    void expectUnlinked(const ComPtr<ScriptedTool>& tool) {
        EXPECT_FALSE(tool->isAttached());
        EXPECT_EQ(tool->operatorObject(), nullptr);
        EXPECT_EQ(countOf(*tool), 1u);
    }
};

TEST_F(LinksInsideLinks, AToolMayRemoveItsContextWhileItIsLinked) {
    VWControllerSetViewer(viewer.get());
    for (const char* call : {"OnLinkToOperator", "OnLinkToViewer"}) {
        const auto tool = makeTool();
        once(tool, call, [&] { EXPECT_EQ(VWControllerRemoveContext(id), S_OK); });
        EXPECT_EQ(push(tool), E_ABORT) << call;
        expectUnlinked(tool);
    }
}

TEST_F(LinksInsideLinks, AToolMayRemoveItsContextWhileItIsUnlinked) {
    for (const char* call : {"OnUnlinkFromViewer", "OnUnlinkFromOperator"}) {
        VWControllerSetViewer(viewer.get());
        const auto tool = makeTool();
        const ULONG context = pushed(tool);
        once(tool, call, [&] { EXPECT_EQ(VWControllerRemoveContext(context), S_OK); });
        VWControllerSetViewer(nullptr);
        expectUnlinked(tool);
        EXPECT_EQ(std::ranges::count(tool->calls, "OnUnlinkFromViewer"), 1);
        EXPECT_EQ(std::ranges::count(tool->calls, "OnUnlinkFromOperator"), 1);
    }
}

TEST_F(LinksInsideLinks, AToolMayPushAnotherWhileItIsLinked) {
    VWControllerSetViewer(viewer.get());
    const auto outer = makeTool("outer", &log), inner = makeTool("inner", &log);
    ULONG second = 0;
    once(outer, "OnLinkToViewer", [&] {
        const ULONG first = id;
        second = pushed(inner);
        id = first;
    });
    const ULONG first = pushed(outer);
    EXPECT_TRUE(isLinked(first));
    EXPECT_TRUE(isLinked(second));
    VWControllerRemoveContext(first);
    VWControllerRemoveContext(second);
}

TEST_F(LinksInsideLinks, AToolMayReplaceTheViewerWhileItIsLinked) {
    const auto second = makeViewer();
    for (const char* call : {"OnLinkToOperator", "OnLinkToViewer"}) {
        VWControllerSetViewer(viewer.get());
        const auto tool = makeTool();
        once(tool, call, [&] { EXPECT_EQ(VWControllerSetViewer(second.get()), S_OK); });
        const ULONG context = pushed(tool);
        EXPECT_EQ(VWControllerContexts()[0].viewer, ComPtr<IDSViewer>(second));
        tool->InvalidateLayer(VWLAYER_TOOL, nullptr);
        EXPECT_EQ(second->calls.back(), "InvalidateLayer");
        VWControllerRemoveContext(context);
        expectUnlinked(tool);
    }
    VWControllerSetViewer(nullptr);
    EXPECT_EQ(countOf(*second), 1u);
}

TEST_F(LinksInsideLinks, AToolMayTakeTheViewerAwayWhileItIsLinked) {
    for (const char* call : {"OnLinkToOperator", "OnLinkToViewer"}) {
        VWControllerSetViewer(viewer.get());
        const auto tool = makeTool();
        once(tool, call, [&] { EXPECT_EQ(VWControllerSetViewer(nullptr), S_OK); });
        const ULONG context = pushed(tool);
        EXPECT_FALSE(isLinked(context));
        EXPECT_FALSE(tool->isAttached());
        VWControllerRemoveContext(context);
        expectUnlinked(tool);
    }
}

TEST_F(LinksInsideLinks, AToolMayReplaceTheViewerWhileAViewerIsSet) {
    const auto second = makeViewer();
    for (const char* call : {"OnLinkToOperator", "OnLinkToViewer", "OnOnTimeChange"}) {
        const auto a = makeTool(), b = makeTool(), c = makeTool();
        const ULONG contexts[] = {pushed(a), pushed(b), pushed(c)};
        second->site->time += 1.0;
        once(b, call, [&] { EXPECT_EQ(VWControllerSetViewer(second.get()), S_OK); });
        EXPECT_EQ(VWControllerSetViewer(viewer.get()), S_OK);
        EXPECT_EQ(VWControllerViewer(), ComPtr<IDSViewer>(second));
        for (const auto& tool : {a, b, c}) {
            EXPECT_EQ(tool->time, second->site->time) << call;
            tool->InvalidateLayer(VWLAYER_TOOL, nullptr);
            EXPECT_EQ(second->calls.back(), "InvalidateLayer");
            second->calls.clear();
        }
        VWControllerSetViewer(nullptr);
        for (const ULONG context : contexts) VWControllerRemoveContext(context);
        for (const auto& tool : {a, b, c}) EXPECT_EQ(tool->operatorObject(), nullptr);
    }
}

TEST_F(LinksInsideLinks, AToolThatSetsAViewerWhileItIsUnlinkedIsOverruled) {
    const auto second = makeViewer(), third = makeViewer();
    for (const char* call : {"OnUnlinkFromViewer", "OnUnlinkFromOperator"}) {
        VWControllerSetViewer(viewer.get());
        const auto a = makeTool(), b = makeTool();
        const ULONG contexts[] = {pushed(a), pushed(b)};
        once(a, call, [&] { EXPECT_EQ(VWControllerSetViewer(third.get()), S_OK); });
        EXPECT_EQ(VWControllerSetViewer(second.get()), S_OK);
        EXPECT_EQ(VWControllerViewer(), ComPtr<IDSViewer>(second));
        EXPECT_TRUE(isLinked(contexts[0]) && isLinked(contexts[1]));
        EXPECT_EQ(std::ranges::count(a->calls, "OnLinkToOperator"), 2)
            << "it is not linked while it is unlinked";
        for (const ULONG context : contexts) VWControllerRemoveContext(context);
        expectUnlinked(a);
        expectUnlinked(b);
    }
    VWControllerSetViewer(nullptr);
    EXPECT_EQ(countOf(*second), 1u);
    EXPECT_EQ(countOf(*third), 1u);
}

TEST_F(LinksInsideLinks, AToolMayRemoveTheOthersInEachCallOfAViewer) {
    for (const char* call : {"OnLinkToViewer", "OnOnTimeChange", "OnUnlinkFromOperator"}) {
        const auto a = makeTool(), b = makeTool(), c = makeTool();
        const ULONG first = pushed(a), second = pushed(b), third = pushed(c);
        once(b, call, [&] {
            VWControllerRemoveContext(first);
            VWControllerRemoveContext(third);
        });
        VWControllerSetViewer(viewer.get());
        VWControllerSetViewer(nullptr);
        expectUnlinked(a);
        expectUnlinked(c);
        EXPECT_EQ(VWControllerRemoveContext(second), S_OK);
        expectUnlinked(b);
    }
}

void onOtherThread(const std::function<void()>& action) {
    std::thread(action).join();
}

TEST_F(ViewerLinks, AreNotMadeOnOtherThreads) {
    VWControllerSetViewer(viewer.get());
    const auto tool = makeTool();
    onOtherThread([&] { EXPECT_EQ(push(tool), S_OK); });
    const ULONG context = id;
    EXPECT_FALSE(isLinked(context));
    EXPECT_THAT(tool->calls, IsEmpty());
    VWControllerSetViewer(viewer.get());
    EXPECT_TRUE(isLinked(context)) << "a viewer that is set links it";
    onOtherThread([&] {
        EXPECT_EQ(VWControllerRemoveContext(context), E_UNEXPECTED);
        EXPECT_EQ(VWControllerSetViewer(nullptr), E_UNEXPECTED);
    });
    EXPECT_TRUE(isLinked(context));
    VWControllerSetViewer(nullptr);
    onOtherThread([&] { EXPECT_EQ(VWControllerRemoveContext(context), S_OK); });
}

TEST_F(ViewerLinks, ComeAndGoWhileOtherThreadsPushAndRemove) {
    const auto shared = makeTool();
    std::atomic<int> refused = 0;
    std::atomic<int> pushes = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
                ULONG own = 0;
                const auto tool = makeTool();
                VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, tool.get(), object(), nullptr,
                                        nullptr, 0.0, &own);
                ++pushes;
                // Refused as long as the viewer has linked the tool.
                while (VWControllerRemoveContext(own) == E_UNEXPECTED) {
                    ++refused;
                    std::this_thread::yield();
                }
            }
        });
    }
    for (int i = 0; i < 300 || pushes < 100; ++i) {
        VWControllerSetViewer(viewer.get());
        const ULONG context = pushed(shared);
        EXPECT_TRUE(isLinked(context));
        EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
        VWControllerSetViewer(nullptr);
        viewer->calls.clear();
        shared->calls.clear();
        log.clear();
    }
    threads.clear();
}

}  // namespace
}  // namespace ruvex::test
