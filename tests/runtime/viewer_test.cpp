#include "runtime/viewer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

#include "runtime/error.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/runtime/scripted_page.h"
#include "tests/support/reference_count.h"
#include "tests/support/scripted_tool.h"

namespace ruvex::runtime::test {
namespace {

using ruvex::test::countOf;
using ruvex::test::makeTool;
using ruvex::test::ScriptedTool;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A surface that is never drawn on.
class BlindSurface final : public ComObject<IViewerSurface> {
public:
    HRESULT Begin(tagVWOPENGLSURFACE*) override { return E_FAIL; }
    HRESULT End() override { return E_FAIL; }
};

class Viewers : public EditorTest {
protected:
    ~Viewers() override {
        viewer.reset();
        EXPECT_EQ(VWControllerViewer(), nullptr);
        for (const VWContext& context : VWControllerContexts()) {
            VWControllerRemoveContext(context.id);
        }
        EXPECT_FALSE(stack().isRecording());
    }

    IUnknown* effect() { return &session.effect(); }

    ULONG push(const ComPtr<ScriptedTool>& tool, IUnknown* object) {
        const auto scope = session.enter();
        ULONG id = 0;
        EXPECT_EQ(VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, tool.get(), object, nullptr,
                                          nullptr, 0.0, &id),
                  S_OK);
        return id;
    }
    ULONG push(const ComPtr<ScriptedTool>& tool) { return push(tool, effect()); }
    void remove(ULONG id) {
        const auto scope = session.enter();
        EXPECT_EQ(VWControllerRemoveContext(id), S_OK);
    }

    /// A tool whose drags write Lift and Invert as one step, and which notes whether all calls came
    /// with the session's project.
    ComPtr<ScriptedTool> makeEditingTool() {
        auto tool = makeTool("tool", &log);
        tool->SetInteractionName(L"Crop");
        tool->during = [this, &tool = *tool](const std::string& call) {
            VARIANT width{};
            alwaysInProject &= DSContentGetProperty(kDSProjectUserSizeX, &width) == S_OK;
            edit(tool, call);
        };
        return tool;
    }
    static void edit(ScriptedTool& tool, const std::string& call) {
        if (call == "OnPenDown") tool.OnBeginInteraction(&tool.pen);
        if (call != "OnPenUp") return;
        const VARIANT lifted = DSVariantFromLong(static_cast<LONG>(tool.pen.x));
        const VARIANT inverted = DSVariantFromBool(true);
        tool.SetAnimatedProperty(kLiftId, &lifted, nullptr, DSTIME_CURRENT, 0);
        tool.SetAnimatedProperty(kInvertId, &inverted, nullptr, DSTIME_CURRENT, 0);
        tool.TerminateInteraction();
    }

    ScriptedTool::Calls log;
    bool alwaysInProject = true;
    std::optional<Viewer> viewer;
    const ComPtr<BlindSurface> surface = ComPtr<BlindSurface>::attach(new BlindSurface);
};

TEST_F(Viewers, LinkTheToolsThatAreThereAndThoseThatCome) {
    editor.setTime(1.5);
    const auto early = makeEditingTool(), late = makeEditingTool();
    push(early);
    EXPECT_FALSE(early->isAttached());
    viewer.emplace(editor);
    EXPECT_TRUE(early->isAttached());
    EXPECT_EQ(early->time, 1.5);
    push(late);
    EXPECT_TRUE(late->isAttached());
    EXPECT_EQ(late->calls, (ScriptedTool::Calls{"OnLinkToOperator", "OnLinkToViewer"}));
    viewer.reset();
    EXPECT_FALSE(early->isAttached() || late->isAttached());
    EXPECT_TRUE(alwaysInProject);
}

TEST_F(Viewers, MakeOneStepOfADrag) {
    viewer.emplace(editor);
    const auto tool = makeEditingTool();
    push(tool);
    EXPECT_EQ(viewer->penDown({1, 2.0, 3.0}), S_OK);
    EXPECT_TRUE(stack().isRecording());
    EXPECT_EQ(viewer->penMove({1, 4.0, 3.0}), S_OK);
    EXPECT_EQ(tool->pen.x, 4.0);
    EXPECT_EQ(viewer->penUp({1, 5.0, 3.0}), S_OK);
    EXPECT_FALSE(stack().isRecording());
    EXPECT_EQ(lift(), 5);
    EXPECT_EQ(session.value(kInvertId), 1.0);
    ASSERT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(stack().undoName(), L"Crop");
    editor.undo();
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(session.value(kInvertId), 0.0);
    EXPECT_TRUE(alwaysInProject);
}

TEST_F(Viewers, MakeNoStepOfAPressThatChangesNothing) {
    viewer.emplace(editor);
    const auto tool = makeTool();
    push(tool);
    tool->during = [&tool = *tool](const std::string& call) {
        if (call == "OnPenDown") tool.OnBeginInteraction(&tool.pen);
        if (call == "OnPenUp") tool.TerminateInteraction();
    };
    viewer->penDown({1, 0.0, 0.0});
    viewer->penUp({1, 0.0, 0.0});
    EXPECT_EQ(stack().undoCount(), 0u);
}

TEST_F(Viewers, PutTheEditsOfPagesDuringADragIntoItsStep) {
    viewer.emplace(editor);
    const auto page = editor.open(kFirstPageId);
    const ComPtr<ScriptedPage> scripted = ScriptedPage::last;
    push(makeEditingTool());
    UNDO_STYLE style = 0;
    const DSUNDOINFO info{L"Page", 0};
    viewer->penDown({1, 2.0, 3.0});
    ASSERT_EQ(scripted->site->BeginUndo(&info, &style), S_OK);
    EXPECT_EQ(scripted->writeLift(30, style), S_OK);
    viewer->penUp({1, 6.0, 3.0});
    EXPECT_TRUE(stack().isRecording()) << "the page's bracket is open";
    EXPECT_EQ(scripted->site->EndUndo(style), S_OK);
    EXPECT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(stack().undoName(), L"Crop");
    editor.undo();
    EXPECT_EQ(lift(), 0);
}

TEST_F(Viewers, EndADragWhereThePenWasLast) {
    viewer.emplace(editor);
    const auto tool = makeEditingTool();
    push(tool);
    viewer->releasePen();
    viewer->penDown({2, 1.0, 1.0});
    viewer->penMove({2, 7.0, 8.0});
    tool->calls.clear();
    viewer->releasePen();
    EXPECT_THAT(tool->calls, ElementsAre("OnPenUp", "OnPropertyChanged", "OnPropertyChanged"));
    EXPECT_EQ(tool->pen.button, 2);
    EXPECT_EQ(tool->pen.x, 7.0);
    EXPECT_EQ(tool->pen.y, 8.0);
    EXPECT_EQ(lift(), 7);
    EXPECT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(viewer->penUp({2, 9.0, 9.0}), S_FALSE) << "the drag is over";
    EXPECT_EQ(lift(), 7);
}

TEST_F(Viewers, EndADragWithTheLastOfItsButtons) {
    viewer.emplace(editor);
    const auto tool = makeTool(), newer = makeTool();
    push(tool);
    viewer->penDown({1, 0.0, 0.0});
    viewer->penDown({3, 1.0, 0.0});
    viewer->penDown({3, 1.0, 0.0});
    push(newer);
    EXPECT_EQ(viewer->penUp({1, 2.0, 0.0}), S_OK);
    viewer->penMove({3, 3.0, 0.0});
    EXPECT_EQ(viewer->penUp({2, 3.0, 0.0}), S_FALSE) << "it did not go down";
    viewer->penUp({3, 4.0, 0.0});
    EXPECT_EQ(tool->pen.x, 4.0);
    EXPECT_EQ(newer->pen.x, 0.0);
    viewer->penMove({0, 5.0, 0.0});
    EXPECT_EQ(tool->pen.x, 4.0);
    EXPECT_EQ(newer->pen.x, 5.0);
}

TEST_F(Viewers, ReleaseAllButtonsTheLastOneFirst) {
    viewer.emplace(editor);
    const auto tool = makeTool();
    push(tool);
    std::vector<LONG> released;
    tool->during = [&released, &tool = *tool](const std::string& call) {
        if (call == "OnPenUp") released.push_back(tool.pen.button);
    };
    for (const LONG button : {1, 3, 2}) viewer->penDown({button, 0.0, 0.0});
    viewer->releasePen();
    EXPECT_THAT(released, ElementsAre(2, 3, 1));
}

TEST_F(Viewers, GiveThePenToTheNewestToolOfTheEffect) {
    viewer.emplace(editor);
    EXPECT_EQ(viewer->penDown({1, 0.0, 0.0}), S_FALSE);
    EXPECT_EQ(viewer->penMove({1, 0.0, 0.0}), S_FALSE);
    EXPECT_EQ(viewer->penUp({1, 0.0, 0.0}), S_FALSE);
    const auto older = makeTool(), newer = makeTool(), foreign = makeTool();
    const auto other = makeEditedObject();
    push(older);
    const ULONG second = push(newer);
    push(foreign, ComPtr<IDSImageEffect>(other).get());
    viewer->penMove({0, 1.0, 0.0});
    EXPECT_EQ(newer->pen.x, 1.0);
    remove(second);
    viewer->penMove({0, 2.0, 0.0});
    EXPECT_EQ(older->pen.x, 2.0);
    EXPECT_EQ(foreign->pen.x, 0.0);
}

TEST_F(Viewers, HandBackTheStatusOfATool) {
    viewer.emplace(editor);
    const auto tool = makeTool();
    push(tool);
    for (const char* failing : {"OnPenDown", "OnPenMove", "OnPenUp", "OnRender"}) {
        tool->failing = failing;
        const auto statusOf = [&](const std::string& call) {
            return call == failing ? E_FAIL : S_OK;
        };
        EXPECT_EQ(viewer->penDown({1, 0.0, 0.0}), statusOf("OnPenDown"));
        EXPECT_EQ(viewer->penMove({1, 0.0, 0.0}), statusOf("OnPenMove"));
        EXPECT_EQ(viewer->penUp({1, 0.0, 0.0}), statusOf("OnPenUp"));
        EXPECT_EQ(viewer->render(*surface), statusOf("OnRender"));
    }
}

TEST_F(Viewers, DrawAllToolsInTheirOrder) {
    viewer.emplace(editor);
    EXPECT_EQ(viewer->render(*surface), S_OK) << "there are none";
    const auto a = makeTool("a", &log), b = makeTool("b", &log);
    push(a);
    push(b);
    log.clear();
    a->failing = "OnRender";
    EXPECT_EQ(viewer->render(*surface), E_FAIL);
    EXPECT_THAT(log, ElementsAre("a OnRender", "b OnRender"));
}

TEST_F(Viewers, TakeThePenFromAToolThatIsRemoved) {
    viewer.emplace(editor);
    const auto tool = makeEditingTool(), older = makeTool();
    push(older);
    const ULONG context = push(tool);
    viewer->penDown({1, 2.0, 3.0});
    viewer->penMove({1, 6.0, 3.0});
    tool->calls.clear();
    remove(context);
    EXPECT_THAT(tool->calls, ElementsAre("OnPenUp", "OnPropertyChanged", "OnPropertyChanged",
                                         "OnUnlinkFromViewer", "OnUnlinkFromOperator"));
    EXPECT_EQ(lift(), 6);
    EXPECT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(countOf(*tool), 1u);
    EXPECT_EQ(viewer->penUp({1, 9.0, 3.0}), S_FALSE);
    viewer->penMove({0, 9.0, 3.0});
    EXPECT_EQ(older->pen.x, 9.0);
}

TEST_F(Viewers, LeaveThePenToTheOthersThatAreNotRemoved) {
    viewer.emplace(editor);
    const auto tool = makeTool(), other = makeTool();
    const ULONG second = push(other);
    push(tool);
    viewer->penDown({1, 2.0, 3.0});
    remove(second);
    EXPECT_EQ(viewer->penUp({1, 2.0, 3.0}), S_OK);
    EXPECT_EQ(other->pen.button, 0);
    EXPECT_EQ(VWControllerViewer()->ReleasePen(nullptr), E_POINTER);
}

TEST_F(Viewers, EndADragThatTheyDoNotOutlive) {
    viewer.emplace(editor);
    push(makeEditingTool());
    viewer->penDown({1, 2.0, 3.0});
    viewer->penMove({1, 6.0, 3.0});
    viewer.reset();
    EXPECT_FALSE(stack().isRecording());
    EXPECT_EQ(lift(), 6);
}

TEST_F(Viewers, CloseTheBracketOfAToolThatForgetsIt) {
    viewer.emplace(editor);
    const auto tool = makeTool();
    push(tool);
    tool->during = [&tool = *tool](const std::string& call) {
        if (call == "OnPenDown") tool.OnBeginInteraction(&tool.pen);
    };
    viewer->penDown({1, 2.0, 3.0});
    viewer->penUp({1, 2.0, 3.0});
    EXPECT_TRUE(stack().isRecording());
    viewer.reset();
    EXPECT_FALSE(stack().isRecording());
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE);
}

TEST_F(Viewers, TellToolsOfEachChange) {
    viewer.emplace(editor);
    const auto tool = makeEditingTool();
    const ULONG context = push(tool);
    editor.setValue(kLiftId, 3.0);
    EXPECT_EQ(tool->changedId, kLiftId);
    EXPECT_EQ(tool->changedValue.lVal, 3);
    editor.undo();
    EXPECT_EQ(tool->changedId, GUID_AllProperties);
    EXPECT_EQ(tool->changedValue.vt, VT_EMPTY);
    remove(context);
    tool->calls.clear();
    editor.redo();
    EXPECT_THAT(tool->calls, IsEmpty());
}

TEST_F(Viewers, TellToolsTheTimeAfterThePages) {
    viewer.emplace(editor);
    const auto page = editor.open(kFirstPageId);
    const ComPtr<ScriptedPage> scripted = ScriptedPage::last;
    const auto tool = makeEditingTool();
    push(tool);
    scripted->during = [&](const std::string& call) { log.push_back("page " + call); };
    log.clear();
    editor.setTime(2.5);
    EXPECT_THAT(log, ElementsAre("page OnTimeChange", "tool OnOnTimeChange"));
    EXPECT_EQ(tool->time, 2.5);
    EXPECT_TRUE(alwaysInProject);
    scripted->during = nullptr;
    viewer.reset();
    editor.setTime(3.0);
    EXPECT_EQ(scripted->time, 3.0);
    EXPECT_EQ(tool->time, 2.5);
}

TEST_F(Viewers, TellEveryToolTheLatestTime) {
    viewer.emplace(editor);
    const auto a = makeTool(), b = makeTool();
    push(a);
    push(b);
    a->during = [&](const std::string&) {
        if (editor.time() < 5.0) editor.setTime(5.0);
    };
    editor.setTime(2.0);
    EXPECT_EQ(a->time, 5.0);
    EXPECT_EQ(b->time, 5.0);
}

TEST_F(Viewers, GiveToolsTheWindowAndPassOnTheirRedraws) {
    int redraws = 0;
    const RECT part{1, 2, 3, 4};
    const auto tool = makeTool();
    push(tool);
    viewer.emplace(editor, [&](ULONG layer, const RECT* area) {
        EXPECT_EQ(layer, VWLAYER_TOOL);
        EXPECT_EQ(area, redraws == 0 ? nullptr : &part);
        if (++redraws == 3) throw std::runtime_error("the host cannot draw");
    });
    EXPECT_EQ(tool->GetViewerWindow(), nullptr);
    const auto window = reinterpret_cast<HWND>(&redraws);
    viewer->setWindow(window);
    EXPECT_EQ(tool->GetViewerWindow(), window);
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_OK);
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, &part), S_OK);
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, &part), E_FAIL);
    EXPECT_EQ(redraws, 3);
    EXPECT_EQ(VWControllerViewer()->GetViewerWindow(nullptr), E_POINTER);
    EXPECT_EQ(VWControllerViewer()->GetSite(nullptr), E_POINTER);
    viewer.reset();
    viewer.emplace(editor);
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_OK) << "without a callback";
}

TEST_F(Viewers, AreReplacedByTheNext) {
    viewer.emplace(editor);
    const auto tool = makeEditingTool();
    push(tool);
    viewer->penDown({1, 4.0, 0.0});
    int redraws = 0;
    const auto second = std::make_unique<Viewer>(editor, [&](ULONG, const RECT*) { ++redraws; });
    EXPECT_EQ(stack().undoCount(), 1u) << "the drag has ended";
    tool->InvalidateLayer(VWLAYER_TOOL, nullptr);
    EXPECT_EQ(redraws, 1);
    EXPECT_EQ(viewer->penDown({1, 0.0, 0.0}), S_FALSE);
    tool->calls.clear();
    EXPECT_EQ(viewer->render(*surface), S_OK);
    editor.setTime(1.0);
    EXPECT_THAT(tool->calls, ElementsAre("OnOnTimeChange"));
    viewer.reset();
    EXPECT_TRUE(tool->isAttached()) << "the second one stays";
    EXPECT_EQ(second->penDown({1, 6.0, 0.0}), S_OK);
    EXPECT_EQ(second->penUp({1, 6.0, 0.0}), S_OK);
}

TEST_F(Viewers, ThatAreGoneRefuseEverything) {
    viewer.emplace(editor);
    const auto object = VWControllerViewer();
    ComPtr<IDSPageSite> site;
    ASSERT_EQ(object->GetSite(site.put()), S_OK);
    const auto tool = makeTool();
    viewer.reset();
    HWND window = nullptr;
    double seconds = 0.0;
    EXPECT_EQ(object->InvalidateLayer(VWLAYER_TOOL, nullptr), E_UNEXPECTED);
    EXPECT_EQ(object->GetViewerWindow(&window), E_UNEXPECTED);
    EXPECT_EQ(object->ReleasePen(tool.get()), E_UNEXPECTED);
    EXPECT_EQ(site->GetTime(&seconds), E_UNEXPECTED);
    EXPECT_EQ(object->GetSite(site.put()), E_UNEXPECTED);
    EXPECT_EQ(site, nullptr);
}

TEST_F(Viewers, AreForOneThread) {
    viewer.emplace(editor);
    std::thread([&] { EXPECT_THROW(Viewer second(editor), StatusError); }).join();
    EXPECT_TRUE(VWControllerViewer());
}

TEST_F(Viewers, MayBeDestroyedInsideEachCallOfATool) {
    const auto destroyIn = [&](const std::string& call, auto operation) {
        viewer.emplace(editor);
        const auto tool = makeTool(), later = makeTool();
        const ULONG first = push(tool), second = push(later);
        for (const auto& each : {tool, later}) {
            each->during = [&](const std::string& name) {
                if (name == call) viewer.reset();
            };
        }
        operation();
        EXPECT_FALSE(viewer) << call;
        EXPECT_FALSE(tool->isAttached() || later->isAttached()) << call;
        remove(first);
        remove(second);
    };
    const tagVWPENEVENT event{1, 2.0, 3.0};
    destroyIn("OnPenDown", [&] { viewer->penDown(event); });
    destroyIn("OnPenMove", [&] { viewer->penMove(event); });
    destroyIn("OnPenUp", [&] {
        viewer->penDown(event);
        viewer->penUp(event);
    });
    destroyIn("OnPenUp", [&] {
        viewer->penDown(event);
        viewer->releasePen();
    });
    destroyIn("OnRender", [&] { viewer->render(*surface); });
    destroyIn("OnOnTimeChange", [&] { editor.setTime(1.0); });
    destroyIn("OnPropertyChanged", [&] { editor.setValue(kLiftId, 2.0); });
}

TEST_F(Viewers, LetToolsRemoveContextsInsideEachCall) {
    viewer.emplace(editor);
    const auto removeIn = [&](const std::string& call, auto operation) {
        const auto tool = makeEditingTool();
        const ULONG context = push(tool);
        const auto edits = tool->during;
        tool->during = [&](const std::string& name) {
            edits(name);
            if (name == call) VWControllerRemoveContext(context);
        };
        operation();
        EXPECT_THAT(VWControllerContexts(), IsEmpty()) << call;
        EXPECT_FALSE(tool->isAttached()) << call;
        EXPECT_FALSE(stack().isRecording()) << call;
        tool->during = nullptr;
        EXPECT_EQ(countOf(*tool), 1u) << call;
    };
    const tagVWPENEVENT event{1, 2.0, 3.0};
    removeIn("OnPenDown", [&] { viewer->penDown(event); });
    removeIn("OnPenMove", [&] {
        viewer->penDown(event);
        viewer->penMove(event);
    });
    removeIn("OnPenUp", [&] {
        viewer->penDown(event);
        viewer->penUp(event);
    });
    removeIn("OnRender", [&] { viewer->render(*surface); });
    removeIn("OnOnTimeChange", [&] { editor.setTime(1.0); });
    removeIn("OnPropertyChanged", [&] { editor.setValue(kLiftId, 20.0); });
}

/// Pages that show a tool as long as they live, as those of the effect do.
class ViewersWithPages : public Viewers {
protected:
    void open() {
        page = editor.open(kFirstPageId);
        ScriptedPage::last->during = [this](const std::string& call) {
            if (call != "Deactivate") return;
            EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
        };
        tool = makeEditingTool();
        context = push(tool);
    }
    void drag() {
        EXPECT_EQ(viewer->penDown({1, 2.0, 3.0}), S_OK);
        EXPECT_EQ(viewer->penUp({1, 2.0, 3.0}), S_OK);
        EXPECT_FALSE(stack().isRecording());
    }
    void expectGone() {
        EXPECT_FALSE(tool->isAttached());
        EXPECT_EQ(tool->operatorObject(), nullptr);
        EXPECT_EQ(countOf(*tool), 1u);
    }

    std::unique_ptr<OpenPage> page;
    ComPtr<ScriptedTool> tool;
    ULONG context = 0;
};

TEST_F(ViewersWithPages, MayGoBeforeThePages) {
    viewer.emplace(editor);
    open();
    drag();
    viewer.reset();
    EXPECT_FALSE(tool->isAttached());
    page.reset();
    expectGone();
}

TEST_F(ViewersWithPages, MayGoAfterThePages) {
    open();
    viewer.emplace(editor);
    drag();
    page.reset();
    expectGone();
    viewer.reset();
}

TEST_F(ViewersWithPages, MayComeAndGoWhileAPageIsOpen) {
    open();
    for (int i = 0; i < 3; ++i) {
        viewer.emplace(editor);
        drag();
        viewer.reset();
        EXPECT_FALSE(tool->isAttached());
    }
    page.reset();
    expectGone();
}

TEST_F(ViewersWithPages, MayLoseAPageInsideEachCallOfATool) {
    viewer.emplace(editor);
    const auto closeIn = [&](const std::string& call, auto operation) {
        open();
        const ComPtr<ScriptedTool> kept = tool;
        const auto edits = tool->during;
        kept->during = [&](const std::string& name) {
            edits(name);
            if (name == call) page.reset();
        };
        operation();
        EXPECT_FALSE(page) << call;
        kept->during = nullptr;
        EXPECT_FALSE(stack().isRecording()) << call;
        EXPECT_FALSE(tool->isAttached()) << call;
    };
    const tagVWPENEVENT event{1, 2.0, 3.0};
    closeIn("OnPenDown", [&] { viewer->penDown(event); });
    closeIn("OnPenMove", [&] { viewer->penMove(event); });
    closeIn("OnPenUp", [&] {
        viewer->penDown(event);
        viewer->penUp(event);
    });
    closeIn("OnRender", [&] { viewer->render(*surface); });
    closeIn("OnOnTimeChange", [&] { editor.setTime(1.0); });
    closeIn("OnPropertyChanged", [&] { editor.setValue(kLiftId, 21.0); });
}

TEST_F(ViewersWithPages, MayGoWhileAPageHearsOfTheTime) {
    viewer.emplace(editor);
    open();
    const auto before = ScriptedPage::last->during;
    ScriptedPage::last->during = [&](const std::string& call) {
        if (call == "OnTimeChange") viewer.reset();
        before(call);
    };
    editor.setTime(1.0);
    EXPECT_EQ(tool->time, -1.0);
    page.reset();
}

}  // namespace
}  // namespace ruvex::runtime::test
