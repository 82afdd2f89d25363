#include "sdk/viewer/interactive_tool.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/sdk/scripted_viewer.h"
#include "tests/support/copy_effect.h"
#include "tests/support/plain_object.h"
#include "tests/support/reference_count.h"
#include "tests/support/scripted_tool.h"

namespace ruvex::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InteractiveTool : public testing::Test {
protected:
    ~InteractiveTool() override {
        viewer->during = nullptr;
        site.during = nullptr;
        tool.reset();
        EXPECT_EQ(ScriptedTool::alive, 0);
        EXPECT_THAT(site.open, IsEmpty()) << "every bracket has ended";
        EXPECT_EQ(countOf(*viewer), 1u);
        EXPECT_EQ(countOf(site), 1u);
        EXPECT_EQ(countOf(*operatorUnknown()), 1u);
    }

    IUnknown* operatorUnknown() { return static_cast<IDSProperties*>(object.get()); }

    void linkBoth() {
        ASSERT_EQ(tool->OnLinkToOperator(operatorUnknown()), S_OK);
        ASSERT_EQ(tool->OnLinkToViewer(viewer.get()), S_OK);
        tool->calls.clear();
        viewer->calls.clear();
    }
    void setLift(LONG lifted) {
        const VARIANT variant = DSVariantFromLong(lifted);
        EXPECT_EQ(object->SetValue(kLiftId, 0.0, &variant), S_OK);
    }
    HRESULT write(LONG lifted, double seconds = DSTIME_CURRENT, int style = DSUNDO_JOIN) {
        const VARIANT variant = DSVariantFromLong(lifted);
        return tool->SetAnimatedProperty(kLiftId, &variant, nullptr, seconds, style);
    }
    HRESULT read(const GUID& id, double seconds) {
        return tool->GetAnimatedProperty(id, &value, nullptr, seconds);
    }
    LONG lift() {
        VARIANT variant{};
        object->GetPlainValue(kLiftId, &variant);
        return variant.lVal;
    }

    ComPtr<CopyEffect> object = ComPtr<CopyEffect>::attach(new CopyEffect);
    ComPtr<ScriptedViewer> viewer = makeViewer();
    ScriptedSite& site = *viewer->site;
    ComPtr<ScriptedTool> tool = makeTool();
    tagVWPENEVENT press{1, 3.0, 4.0};
    VARIANT value{};
};

TEST_F(InteractiveTool, RefusesMissingPointers) {
    linkBoth();
    EXPECT_EQ(tool->OnRender(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnPenDown(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnPenMove(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnPenUp(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnLinkToOperator(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnLinkToViewer(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnBeginInteraction(nullptr), E_POINTER);
    EXPECT_EQ(tool->OnDoInteraction(nullptr), E_POINTER);
    EXPECT_EQ(tool->GetAnimatedProperty(kLiftId, nullptr, nullptr, 0.0), E_POINTER);
    EXPECT_EQ(tool->SetAnimatedProperty(kLiftId, nullptr, nullptr, 0.0, 0), E_POINTER);
    auto* const params = reinterpret_cast<DSPARAMS*>(tool.get());
    value = DSVariantFromLong(1);
    EXPECT_EQ(tool->GetAnimatedProperty(kLiftId, &value, params, 0.0), E_INVALIDARG);
    EXPECT_EQ(tool->SetAnimatedProperty(kLiftId, &value, params, 0.0, 0), E_INVALIDARG);
}

TEST_F(InteractiveTool, AcceptsWhatItDoesNothingWith) {
    EXPECT_EQ(tool->OnPenDown(&press), S_OK);
    EXPECT_EQ(tool->OnPenMove(&press), S_OK);
    EXPECT_EQ(tool->OnPenUp(&press), S_OK);
    EXPECT_EQ(tool->OnDoInteraction(&press), S_OK);
    EXPECT_EQ(tool->OnOnTimeChange(1.0), S_OK);
    EXPECT_EQ(tool->OnPropertyChanged(kLiftId, nullptr), S_OK);
    EXPECT_EQ(tool->IsAutoKey(), S_FALSE);
}

TEST_F(InteractiveTool, KeepsOneOperatorAndOneViewer) {
    EXPECT_EQ(tool->operatorObject(), nullptr);
    EXPECT_FALSE(tool->isAttached());
    linkBoth();
    EXPECT_EQ(tool->operatorObject(), operatorUnknown());
    EXPECT_TRUE(tool->isAttached());
    EXPECT_EQ(tool->OnLinkToOperator(operatorUnknown()), E_UNEXPECTED);
    EXPECT_EQ(tool->OnLinkToViewer(viewer.get()), E_UNEXPECTED);
    EXPECT_EQ(tool->OnUnlinkFromViewer(), S_OK);
    EXPECT_EQ(tool->OnUnlinkFromViewer(), S_FALSE);
    EXPECT_FALSE(tool->isAttached());
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_OK);
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_FALSE);
    EXPECT_EQ(tool->operatorObject(), nullptr);
    linkBoth();
    EXPECT_TRUE(tool->isAttached());
}

TEST_F(InteractiveTool, ALinkThatFailsChangesNothing) {
    const auto plain = ComPtr<PlainObject>::attach(new PlainObject);
    const auto unobservable = ComPtr<ScriptedProperties>::attach(new ScriptedProperties);
    EXPECT_EQ(tool->OnLinkToOperator(plain.get()), E_NOINTERFACE);
    EXPECT_EQ(tool->OnLinkToOperator(unobservable.get()), E_OUTOFMEMORY);
    EXPECT_EQ(tool->OnLinkToViewer(plain.get()), E_NOINTERFACE);
    viewer->failing = "GetSite";
    EXPECT_EQ(tool->OnLinkToViewer(viewer.get()), E_FAIL);
    EXPECT_EQ(tool->operatorObject(), nullptr);
    EXPECT_FALSE(tool->isAttached());
    EXPECT_EQ(countOf(*plain), 1u);
    EXPECT_EQ(countOf(*unobservable), 1u);
    viewer->failing.clear();
    linkBoth();
}

TEST_F(InteractiveTool, AViewerWithoutASiteIsRefused) {
    const auto bare = makeViewer();
    bare->site.reset();
    EXPECT_EQ(tool->OnLinkToViewer(bare.get()), E_UNEXPECTED);
    EXPECT_EQ(countOf(*bare), 1u);
}

TEST_F(InteractiveTool, ThatIsLinkedInsideOfALinkKeepsTheInnerOne) {
    const auto other = makeViewer();
    viewer->during = [&](const std::string&) {
        EXPECT_EQ(tool->OnLinkToViewer(other.get()), S_OK);
    };
    EXPECT_EQ(tool->OnLinkToViewer(viewer.get()), E_UNEXPECTED);
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_OK);
    EXPECT_EQ(other->calls.back(), "InvalidateLayer");
    EXPECT_EQ(tool->OnUnlinkFromViewer(), S_OK);
    EXPECT_EQ(countOf(*other), 1u);
}

TEST_F(InteractiveTool, WithoutAViewerNothingIsDrawnAndNothingWritten) {
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_FALSE);
    EXPECT_EQ(tool->GetViewerWindow(), nullptr);
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_FALSE);
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE);
    EXPECT_EQ(read(kLiftId, 0.0), E_UNEXPECTED);
    ASSERT_EQ(tool->OnLinkToOperator(operatorUnknown()), S_OK);
    EXPECT_EQ(read(kLiftId, 0.0), S_OK);
    EXPECT_EQ(read(kLiftId, DSTIME_CURRENT), E_UNEXPECTED);
    EXPECT_EQ(write(1), E_UNEXPECTED);
    EXPECT_EQ(write(1, 0.0), E_UNEXPECTED);
}

TEST_F(InteractiveTool, WithoutAnOperatorNothingIsReadOrWritten) {
    ASSERT_EQ(tool->OnLinkToViewer(viewer.get()), S_OK);
    EXPECT_EQ(read(kLiftId, 0.0), E_UNEXPECTED);
    EXPECT_EQ(write(1), E_UNEXPECTED);
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
}

TEST_F(InteractiveTool, ReachesTheViewer) {
    linkBoth();
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_OK);
    EXPECT_EQ(viewer->lastLayer, VWLAYER_TOOL);
    EXPECT_EQ(tool->GetViewerWindow(), reinterpret_cast<HWND>(viewer.get()));
    viewer->failing = "GetViewerWindow";
    EXPECT_EQ(tool->GetViewerWindow(), nullptr);
    viewer->failing = "InvalidateLayer";
    EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), E_FAIL);
}

TEST_F(InteractiveTool, ReadsAtATimeAndAtTheCurrentOne) {
    linkBoth();
    const DSKey keys[] = {{0.0, 10.0}, {4.0, 50.0}};
    ASSERT_EQ(object->SetKeys(kDelayId, keys, 2), S_OK);
    EXPECT_EQ(read(kDelayId, 2.0), S_OK);
    EXPECT_EQ(value.dblVal, 30.0);
    EXPECT_EQ(read(kDelayId, DSTIME_CURRENT), S_OK);
    EXPECT_EQ(value.dblVal, 50.0);
    EXPECT_EQ(read(GUID_NoProperty, 0.0), E_INVALIDARG);
    site.failing = "GetTime";
    EXPECT_EQ(read(kDelayId, DSTIME_CURRENT), E_FAIL);
    EXPECT_EQ(read(kDelayId, 0.0), S_OK);
}

TEST_F(InteractiveTool, WritesThroughTheSite) {
    linkBoth();
    EXPECT_EQ(write(5, 2.0, 9), S_OK);
    EXPECT_EQ(lift(), 5);
    EXPECT_EQ(site.lastTime, 2.0);
    EXPECT_EQ(site.lastStyle, 9u);
    EXPECT_EQ(write(6), S_OK);
    EXPECT_EQ(site.lastTime, 4.0);
    EXPECT_EQ(site.lastStyle, DSUNDO_JOIN);
    site.failing = "WriteProperty";
    EXPECT_EQ(write(7), E_FAIL);
    site.failing = "GetTime";
    EXPECT_EQ(write(7), E_FAIL);
    EXPECT_EQ(lift(), 6);
}

TEST_F(InteractiveTool, HearsOfChangesWhileItIsLinked) {
    setLift(1);
    EXPECT_THAT(tool->calls, IsEmpty());
    linkBoth();
    setLift(2);
    EXPECT_EQ(tool->changedId, kLiftId);
    EXPECT_EQ(tool->changedValue.lVal, 2);
    EXPECT_EQ(object->SetStates(nullptr, 0), S_OK);
    object->OnPropertyChanged(GUID_AllProperties, 0, nullptr);
    EXPECT_EQ(tool->changedId, GUID_AllProperties);
    EXPECT_EQ(tool->changedValue.vt, VT_EMPTY);
    EXPECT_THAT(tool->calls, ElementsAre("OnPropertyChanged", "OnPropertyChanged"));
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_OK);
    setLift(3);
    EXPECT_EQ(tool->calls.back(), "OnUnlinkFromOperator");
}

TEST_F(InteractiveTool, MayLeaveInsideANotification) {
    linkBoth();
    tool->during = [&](const std::string& call) {
        if (call == "OnPropertyChanged") tool->OnUnlinkFromOperator();
    };
    setLift(2);
    setLift(3);
    EXPECT_THAT(tool->calls, ElementsAre("OnPropertyChanged", "OnUnlinkFromOperator"));
}

TEST_F(InteractiveTool, MayBeReleasedInsideANotification) {
    linkBoth();
    tool->during = [&](const std::string& call) {
        if (call != "OnPropertyChanged") return;
        tool->OnUnlinkFromViewer();
        tool.reset();
    };
    setLift(2);
    EXPECT_EQ(ScriptedTool::alive, 0);
}

TEST_F(InteractiveTool, OfAnEarlierObserversUnlinkingHearsNothingMore) {
    const auto earlier = makeTool();
    ASSERT_EQ(earlier->OnLinkToOperator(operatorUnknown()), S_OK);
    linkBoth();
    earlier->during = [&](const std::string&) { tool->OnUnlinkFromOperator(); };
    setLift(2);
    EXPECT_THAT(tool->calls, ElementsAre("OnUnlinkFromOperator"));
    earlier->during = nullptr;
    EXPECT_EQ(earlier->OnUnlinkFromOperator(), S_OK);
}

TEST_F(InteractiveTool, IsOutOfReachOfAnObserverThatIsKept) {
    const auto keeping = ComPtr<ScriptedProperties>::attach(new ScriptedProperties);
    keeping->refuses = false;
    ASSERT_EQ(tool->OnLinkToOperator(keeping.get()), S_OK);
    const auto notify = [&] {
        return keeping->observer->PropertyChanged(kLiftId, nullptr, nullptr, nullptr, 0);
    };
    tool->failing = "OnPropertyChanged";
    EXPECT_EQ(notify(), E_FAIL);
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_OK);
    EXPECT_EQ(notify(), S_OK);
    EXPECT_EQ(std::ranges::count(tool->calls, "OnPropertyChanged"), 1);
    ASSERT_EQ(tool->OnLinkToOperator(keeping.get()), S_OK);
    tool.reset();
    EXPECT_EQ(ScriptedTool::alive, 0);
    EXPECT_EQ(notify(), S_OK);
}

TEST_F(InteractiveTool, MakesOneBracketOfADrag) {
    linkBoth();
    tool->SetInteractionName(L"Crop");
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    EXPECT_EQ(site.bracketName, L"Crop");
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_FALSE) << "it is under way";
    EXPECT_EQ(tool->OnDoInteraction(&press), S_OK);
    EXPECT_THAT(site.open, ElementsAre(2u));
    EXPECT_EQ(tool->TerminateInteraction(), S_OK);
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE);
    EXPECT_THAT(site.calls, ElementsAre("BeginUndo", "EndUndo"));
}

TEST_F(InteractiveTool, HandsBackWhatTheSiteSaysOfABracket) {
    linkBoth();
    site.failing = "BeginUndo";
    EXPECT_EQ(tool->OnBeginInteraction(&press), E_FAIL);
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE) << "none is under way";
    site.failing = "EndUndo";
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    EXPECT_EQ(tool->TerminateInteraction(), E_FAIL);
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE);
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    EXPECT_EQ(tool->OnUnlinkFromViewer(), S_OK) << "whatever the site says";
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_OK);
}

TEST_F(InteractiveTool, UnlinkingAndDyingEndADrag) {
    linkBoth();
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    EXPECT_EQ(tool->OnUnlinkFromViewer(), S_OK);
    EXPECT_THAT(site.open, IsEmpty());
    EXPECT_EQ(tool->OnLinkToViewer(viewer.get()), S_OK);
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    EXPECT_EQ(tool->OnUnlinkFromOperator(), S_OK);
    EXPECT_THAT(site.open, IsEmpty());
    EXPECT_EQ(tool->OnLinkToOperator(operatorUnknown()), S_OK);
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    tool.reset();
    EXPECT_THAT(site.open, IsEmpty());
    setLift(8);
}

TEST_F(InteractiveTool, DyingHearsNoChangeThatTheEndOfItsBracketMakes) {
    linkBoth();
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    site.during = [&](const std::string& call) {
        if (call == "EndUndo") setLift(9);
    };
    tool.reset();
    EXPECT_EQ(lift(), 9);
}

TEST_F(InteractiveTool, ThatIsUnlinkedWhileABracketBeginsEndsIt) {
    linkBoth();
    site.during = [&](const std::string& call) {
        if (call == "BeginUndo") tool->OnUnlinkFromViewer();
    };
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_FALSE);
    EXPECT_THAT(site.calls, ElementsAre("BeginUndo", "EndUndo"));
    EXPECT_EQ(tool->TerminateInteraction(), S_FALSE);
}

TEST_F(InteractiveTool, ADragInsideTheBeginningOfADragGoesOn) {
    linkBoth();
    site.during = [&](const std::string&) {
        site.during = nullptr;
        EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
    };
    EXPECT_EQ(tool->OnBeginInteraction(&press), S_FALSE);
    EXPECT_THAT(site.open, ElementsAre(2u)) << "the inner one's";
    EXPECT_EQ(tool->TerminateInteraction(), S_OK);
}

TEST_F(InteractiveTool, MayBeUnlinkedInsideEachCallOut) {
    const auto unlink = [&](const std::string&) {
        tool->OnUnlinkFromViewer();
        tool->OnUnlinkFromOperator();
    };
    const auto unlinkIn = [&](auto operation) {
        linkBoth();
        site.during = viewer->during = unlink;
        operation();
        site.during = viewer->during = nullptr;
        EXPECT_FALSE(tool->isAttached());
        EXPECT_EQ(tool->operatorObject(), nullptr);
    };
    unlinkIn([&] { EXPECT_EQ(tool->InvalidateLayer(VWLAYER_TOOL, nullptr), S_OK); });
    unlinkIn([&] { EXPECT_NE(tool->GetViewerWindow(), nullptr); });
    unlinkIn([&] { EXPECT_EQ(read(kLiftId, DSTIME_CURRENT), S_OK); });
    unlinkIn([&] { EXPECT_EQ(write(3, 0.0), S_OK); });
    unlinkIn([&] {
        site.during = nullptr;
        EXPECT_EQ(tool->OnBeginInteraction(&press), S_OK);
        site.during = unlink;
        EXPECT_EQ(tool->TerminateInteraction(), S_OK);
    });
}

}  // namespace
}  // namespace ruvex::test
