// The tool by itself: construction, pen events, links and lifetimes.

#include <cmath>
#include <limits>

#include "host/module/entry_points.h"
#include "sdk/effect/content.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

DSContent contentOf(double userX, double userY, double worldX, double worldY) {
    return {{kDSProjectUserSizeX, userX},
            {kDSProjectUserSizeY, userY},
            {kDSProjectWorldSizeX, worldX},
            {kDSProjectWorldSizeY, worldY}};
}

ComPtr<VxTInteract> toolIn(const DSContent& content) {
    const DSContentScope scope(content);
    return ComPtr<VxTInteract>::attach(new VxTInteract);
}

struct Construction {
    DSContent content;
    std::int32_t width, height;
    float userScale;
};

TEST(InteractConstruction, TakesTheFrameFromTheProject) {
    DSContent withoutWorldX = contentOf(720, 576, 0, 528);
    withoutWorldX.erase(kDSProjectWorldSizeX);
    const Construction rows[] = {
        {contentOf(720, 576, 720, 528), 785, 576, 528.0f / 576.0f},
        {contentOf(1920, 1080, 1920, 1080), 1920, 1080, 1.0f},
        {contentOf(100, 60, 100, 120), 50, 60, 2.0f},
        {contentOf(100.9, 60.9, 100.9, 60.9), 100, 60, 1.0f},
        {withoutWorldX, 785, 576, 528.0f / 576.0f},
        // A project that can't be read, or makes no sense.
        {{}, 0, 0, 1.0f},
        {{{kDSProjectUserSizeX, 720.0}, {kDSProjectUserSizeY, 576.0}}, 0, 0, 1.0f},
        {contentOf(720, 576, 720, 0), 0, 0, 1.0f},
        {contentOf(720, 0, 720, 528), 0, 0, 1.0f},
        {contentOf(1e300, 576, 1e300, 528), 0, 576, 528.0f / 576.0f},
    };
    for (const Construction& row : rows) {
        const auto tool = toolIn(row.content);
        EXPECT_EQ(tool->frameWidth, row.width);
        EXPECT_EQ(tool->frameHeight, row.height);
        EXPECT_EQ(tool->userScale, row.userScale);
        const VxPosition size{static_cast<float>(row.width), static_cast<float>(row.height)};
        const VxPosition middle{size.x * 0.5f, size.y * 0.5f};
        EXPECT_EQ(tool->sourceOrigin, VxPosition{});
        EXPECT_EQ(tool->sourceSize, size);
        EXPECT_EQ(tool->frameCentre.centre, middle);
        EXPECT_EQ(tool->srcCentre.centre, middle);
    }
}

TEST(InteractConstruction, HasTwoInvisibleAnchorsAndAGroup) {
    const auto tool = toolIn(contentOf(720, 576, 720, 576));
    EXPECT_EQ(tool->toolFlags, VxTInteract::kOverlayEnabled);
    EXPECT_EQ(tool->isLinked, 0);
    EXPECT_EQ(tool->fontLists, 0u);
    VxTObject* const expected[] = {&tool->frameCentre, &tool->srcCentre, &tool->viewZero};
    const char* const names[] = {"Frame Centre", "Src Centre", "View Zero"};
    auto* node = tool->children.head;
    for (int i = 0; i < 3; ++i, node = node->next) {
        ASSERT_TRUE(node);
        EXPECT_EQ(node->item, expected[i]);
        EXPECT_EQ(node->item->name, names[i]);
        EXPECT_EQ(node->item->manager, tool.get());
        EXPECT_TRUE(node->item->isVisible());
    }
    EXPECT_FALSE(node);
    for (const VxT2DAxisGroup* anchor : {&tool->frameCentre, &tool->srcCentre}) {
        EXPECT_EQ(anchor->handles, 3u);
        EXPECT_FALSE(anchor->groupFlags & VxT2DAxisGroup::kHasAxis);
    }
    EXPECT_EQ(tool->viewZero.groupFlags, VxTGroup::kUseGlobalGrey);
    VxMessage message(VxMessageId::PenMoved);
    message.setPosition({360, 288});
    tool->handleMessage(&message, nullptr);
    EXPECT_FALSE(tool->over) << "nothing there takes the pen";
}

TEST(InteractIdentity, IsTheToolForItsClassIdentifier) {
    const auto tool = toolIn({});
    void* found = nullptr;
    EXPECT_EQ(tool->QueryInterface(kToolClassId, &found), S_OK);
    EXPECT_EQ(found, tool.get());
    tool->Release();
    EXPECT_EQ(tool->QueryInterface(kToolClassId, nullptr), E_POINTER);
    EXPECT_EQ(tool->QueryInterface(kRuvexClassId, &found), E_NOINTERFACE);
    EXPECT_EQ(ComPtr<CDSInteractiveTool>(tool).query<IDSInteractiveTool>().get(), tool.get());
    EXPECT_EQ(tool->aggregationResult(), CLASS_E_NOAGGREGATION);
    EXPECT_FALSE(interactiveTool(nullptr));
}

TEST(InteractSource, MovesItsAnchorWithTheInput) {
    const auto tool = toolIn(contentOf(720, 576, 720, 576));
    tool->SetSourceRect({10, 20}, {100, 50});
    EXPECT_EQ(tool->srcCentre.centre, (VxPosition{60, 45}));
    tool->SetSourceRect({10.009f, 20}, {100, 50});
    EXPECT_EQ(tool->sourceOrigin, (VxPosition{10, 20})) << "no more than 0.01 away";
    tool->SetSourceRect({10, 20}, {100, 50.02f});
    EXPECT_EQ(tool->sourceSize, (VxPosition{100, 50.02f}));
    EXPECT_EQ(tool->frameCentre.centre, (VxPosition{360, 288}));
}

// In the viewer.

class Interact : public ToolTest {};

TEST_F(Interact, IsLinkedBeforeTheBoxReads) {
    EXPECT_EQ(tool().isLinked, 1);
    EXPECT_EQ(box().tool, &tool());
    expectRect({0, 0, 720, 576});
}

TEST_F(Interact, OtherButtonsAndAHiddenOverlayGoToTheBase) {
    const auto touched = [&] { return tool().penPosition != VxPosition{} || redraws > 0; };
    redraws = 0;
    for (const LONG button : {0, 2, 3}) {
        EXPECT_EQ(press(0, 300, button), S_OK);
        EXPECT_EQ(release(0, 300, button), S_OK);
    }
    EXPECT_FALSE(touched());
    tool().toolFlags = 0;
    press(0, 300);
    move(50, 300);
    release(50, 300);
    EXPECT_FALSE(touched());
    EXPECT_EQ(value(ParameterId::CropLeft), 0);
    EXPECT_FALSE(editor->undoStack().isRecording()) << "no interaction has begun";
    set(ParameterId::CropLeft, 25);
    expectRect({180, 0, 720, 576});
}

TEST_F(Interact, AMoveCountsWithEveryButton) {
    for (const LONG button : {0, 1, 2}) {
        move(static_cast<float>(button), 300, button);
        EXPECT_EQ(tool().penPosition, (VxPosition{static_cast<float>(button), 300}));
    }
}

TEST_F(Interact, EventsWithoutARecordAreRefused) {
    EXPECT_EQ(tool().OnPenDown(nullptr), E_POINTER);
    EXPECT_EQ(tool().OnPenMove(nullptr), E_POINTER);
    EXPECT_EQ(tool().OnPenUp(nullptr), E_POINTER);
    EXPECT_EQ(tool().OnRender(nullptr), E_POINTER);
    tool().toolFlags = 0;
    EXPECT_EQ(tool().OnRender(nullptr), E_POINTER) << "when disabled too";
}

TEST_F(Interact, AnEventThatChangesSomethingAsksForOneRedraw) {
    tool().showTips = false;
    const auto redrawsOf = [&](auto action) {
        tool().managerFlags = 0;
        redraws = 0;
        action();
        return redraws;
    };
    EXPECT_EQ(redrawsOf([&] { move(300, 300); }), 0) << "nothing is under the pen";
    EXPECT_EQ(redrawsOf([&] { move(1, 300); }), 1) << "the left line is";
    EXPECT_EQ(redrawsOf([&] { move(2, 310); }), 0) << "still the left line";
    EXPECT_EQ(redrawsOf([&] { press(2, 310); }), 1);
    EXPECT_EQ(redrawsOf([&] { move(60, 310); }), 1);
    EXPECT_EQ(redrawsOf([&] { move(60, 330); }), 0) << "along the line";
    EXPECT_EQ(redrawsOf([&] { release(60, 330); }), 2) << "for the written property, and the event";
    EXPECT_EQ(redrawsOf([&] { tool().setEnabled(false); }), 1);
    EXPECT_EQ(redrawsOf([&] { tool().setEnabled(true); }), 1);
}

TEST_F(Interact, APressAnywhereBeginsAnInteraction) {
    press(300, 300);
    EXPECT_TRUE(editor->undoStack().isRecording());
    release(300, 300);
    EXPECT_FALSE(editor->undoStack().isRecording());
    EXPECT_EQ(editor->undoStack().undoCount(), 0u);
}

TEST_F(Interact, HidingTheOverlayDuringADragEndsIt) {
    press(0, 300);
    move(72, 300);
    tool().setEnabled(false);
    EXPECT_EQ(value(ParameterId::CropLeft), 10);
    EXPECT_FALSE(editor->undoStack().isRecording());
    EXPECT_FALSE(box().isPressed());
    tool().setEnabled(true);
    move(144, 300);
    EXPECT_EQ(value(ParameterId::CropLeft), 10);
}

TEST_F(Interact, ReadsAndWritesNothingWithoutALink) {
    double percent = -7;
    EXPECT_TRUE(tool().GetAnimatedDouble(idOf(ParameterId::CropRight), &percent, DSTIME_CURRENT));
    EXPECT_EQ(percent, 100);
    tool().isLinked = 0;
    percent = -7;
    EXPECT_FALSE(tool().GetAnimatedDouble(idOf(ParameterId::CropRight), &percent, 0.0));
    EXPECT_FALSE(tool().SetAnimatedDouble(idOf(ParameterId::CropRight), 50));
    tool().isLinked = 1;
    EXPECT_FALSE(tool().GetAnimatedDouble(GUID_NoProperty, &percent, 0.0));
    EXPECT_FALSE(tool().SetAnimatedDouble(GUID_NoProperty, 50));
    EXPECT_FALSE(tool().GetAnimatedDouble(kToolClassId, &percent, 0.0)) << "unknown to the effect";
    EXPECT_FALSE(tool().SetAnimatedDouble(kToolClassId, 50));
    EXPECT_FALSE(tool().SetAnimatedDouble(idOf(ParameterId::CropRight), std::nan("")));
    EXPECT_FALSE(tool().GetAnimatedDouble(idOf(ParameterId::TvType), &percent, 0.0)) << "no real";
    EXPECT_EQ(percent, -7);
    EXPECT_TRUE(writes.empty());
}

TEST_F(Interact, ReadsAPropertyIfTheNotificationIsAboutIt) {
    double percent = 0;
    const GUID id = idOf(ParameterId::CropRight);
    EXPECT_TRUE(tool().GetAnimatedDoubleIfChanged(id, id, &percent));
    EXPECT_TRUE(tool().GetAnimatedDoubleIfChanged(GUID_AllProperties, id, &percent));
    EXPECT_FALSE(tool().GetAnimatedDoubleIfChanged(idOf(ParameterId::CropTop), id, &percent));
    EXPECT_FALSE(tool().GetAnimatedDoubleIfChanged(GUID_NoProperty, id, &percent));
}

TEST_F(Interact, AFailureOfTheBaseEndsANotification) {
    redraws = 0;
    EXPECT_EQ(tool().OnPropertyChanged(GUID_NoProperty, nullptr), E_INVALIDARG);
    set(ParameterId::CropLeft, 25);
    EXPECT_EQ(redraws, 1);
    {
        const Silence silence(*this);
        set(ParameterId::CropLeft, 50);
    }
    redraws = 0;
    EXPECT_EQ(tool().OnOnTimeChange(std::numeric_limits<double>::quiet_NaN()), E_INVALIDARG);
    expectRect({180, 0, 720, 576});
    EXPECT_EQ(redraws, 0);
    EXPECT_EQ(tool().OnOnTimeChange(1.0), S_OK);
    expectRect({360, 0, 720, 576});
    EXPECT_EQ(redraws, 1);
}

TEST_F(Interact, ATimeChangeWithoutAViewerDoesNothing) {
    const ComPtr<VxTInteract> kept(&tool());
    VxTDsCrop& crop = box();
    viewer.reset();
    crop.setRect(1, 2, 3, 4);
    EXPECT_EQ(kept->OnOnTimeChange(std::nan("")), S_OK) << "is not even looked at";
    EXPECT_EQ(crop.rect, (VxRect{1, 2, 3, 4}));
}

class WidePixels : public ToolTest {
protected:
    WidePixels() : ToolTest({.width = 720, .height = 576, .pixelAspect = 16.0 / 11.0}) {}
};

TEST_F(WidePixels, ThePenComesInWorldUnitsAndTheTreeIsInUserUnits) {
    const float userScale = 396.0f / 576.0f;
    EXPECT_EQ(tool().userScale, userScale);
    viewer->penMove({.button = 0, .x = 100.0, .y = 50.0});
    EXPECT_EQ(tool().penPosition, (VxPosition{static_cast<float>(100.0 / userScale),
                                              static_cast<float>(50.0 / userScale)}));
    viewer->penMove({.button = 0, .x = -7.0, .y = 396.0});
    EXPECT_EQ(tool().penPosition, (VxPosition{static_cast<float>(-7.0 / userScale), 576.0f}));
}

TEST_F(WidePixels, ALineIsTakenWhereItIsSeen) {
    set(ParameterId::CropLeft, 25);
    viewer->penDown({.button = 1, .x = 180.0, .y = 200.0});
    viewer->penUp({.button = 1, .x = 360.0, .y = 200.0});
    EXPECT_EQ(value(ParameterId::CropLeft), 25) << "a release is no move";
    viewer->penDown({.button = 1, .x = 180.0, .y = 200.0});
    viewer->penMove({.button = 1, .x = 360.0, .y = 200.0});
    viewer->penUp({.button = 1, .x = 360.0, .y = 200.0});
    EXPECT_NEAR(value(ParameterId::CropLeft), 50, 1e-4);
}

// Links.

/// A link fails if it is made twice or to nothing. The failure ends the link that was there.
TEST_F(Interact, ALinkThatFailsIsTakenBack) {
    const ComPtr<IUnknown> effect(VWControllerContexts()[0].object);
    EXPECT_EQ(tool().OnLinkToOperator(effect.get()), E_UNEXPECTED);
    EXPECT_EQ(tool().isLinked, 0);
    EXPECT_EQ(tool().OnLinkToOperator(nullptr), E_POINTER);
    EXPECT_EQ(tool().isLinked, 0);
    EXPECT_EQ(tool().OnLinkToOperator(effect.get()), S_OK);
    EXPECT_EQ(tool().isLinked, 1);
    EXPECT_EQ(tool().OnLinkToViewer(nullptr), E_POINTER);
    EXPECT_EQ(tool().isLinked, 0) << "although the operator is linked still";
    EXPECT_EQ(tool().OnLinkToViewer(effect.get()), E_NOINTERFACE);
    EXPECT_EQ(tool().OnUnlinkFromViewer(), S_FALSE);
    EXPECT_EQ(tool().OnUnlinkFromOperator(), S_OK);
    EXPECT_EQ(tool().OnUnlinkFromOperator(), S_FALSE);
}

TEST_F(Interact, ALinkToAViewerAsksForARedraw) {
    redraws = 0;
    tool().OnUnlinkFromViewer();
    EXPECT_EQ(redraws, 1);
    EXPECT_EQ(tool().OnLinkToViewer(VWControllerViewer().get()), S_OK);
    EXPECT_EQ(redraws, 2);
}

TEST_F(Interact, UnlinkingDuringADragEndsIt) {
    press(0, 300);
    move(72, 300);
    tool().OnUnlinkFromViewer();
    EXPECT_EQ(value(ParameterId::CropLeft), 10);
    EXPECT_EQ(tool().isPenDown(), 0u);
    EXPECT_FALSE(editor->undoStack().isRecording());
}

TEST_F(Interact, AViewerThatComesLaterLinksAndReads) {
    viewer.reset();
    EXPECT_EQ(tool().isLinked, 0);
    set(ParameterId::CropLeft, 25);
    expectRect({0, 0, 720, 576});
    editor->setTime(2.0);
    viewer = std::make_unique<runtime::Viewer>(*editor);
    EXPECT_EQ(tool().isLinked, 1);
    expectRect({180, 0, 720, 576});
}

TEST_F(Interact, TheWindowIsDrawnAgainWhenTheToolGoes) {
    const HWND window = page->window();
    viewer->setWindow(window);
    int changes = 0;
    const DSWindowObserver before = DSObserveWindows([&](HWND changed, DSWindowChange) {
        if (changed == window) ++changes;
    });
    redraws = 0;
    tool().OnUnlinkFromViewer();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(redraws, 1);
    DSObserveWindows(before);
}

/// Counts in objectCount until its observer has been removed from the effect.
TEST(InteractLifetime, TheModuleStaysLoadedUntilTheToolHasLeftTheEffect) {
    attachModule();
    auto session = std::make_unique<runtime::EffectSession>(
        runtime::EffectSession::Setup{.project = {.width = 720, .height = 576}});
    const std::int32_t before = objectCount;
    auto tool = toolIn({});
    EXPECT_EQ(objectCount, before + 1);
    ASSERT_EQ(tool->OnLinkToOperator(&session->effect()), S_OK);
    session.reset();
    EXPECT_EQ(objectCount, before + 1) << "the tool keeps the effect";
    tool.reset();
    EXPECT_EQ(objectCount, 0);
}

// Pages share one tool.

TEST_F(Interact, AllPagesShareOneToolAndTheLastTakesItAway) {
    const VxTInteract* const first = &tool();
    auto guns = open(kGunsPageId);
    EXPECT_EQ(VWControllerContexts().size(), 1u);
    EXPECT_EQ(&tool(), first);
    page.reset();
    EXPECT_EQ(&tool(), first);
    EXPECT_EQ(tool().dsObjects.head->item, &box());
    EXPECT_FALSE(tool().dsObjects.head->next);
    guns.reset();
    EXPECT_TRUE(VWControllerContexts().empty());
}

TEST_F(Interact, ThePageThatIsOpenedWhileTheToolIsLinkedIsInFront) {
    page.reset();
    // The first page brings the tool; while that is linked, the Cropping page opens and shows.
    viewer->setWindow(nullptr);
    std::unique_ptr<runtime::OpenPage> inner;
    onRedraw = [&] {
        onRedraw = {};
        inner = open(kCropPageId);
    };
    const auto outer = editor->open(kGunsPageId);
    ASSERT_TRUE(inner);
    EXPECT_EQ(VWControllerContexts().size(), 1u);
    EXPECT_TRUE(box().isVisible());
}

TEST_F(Interact, TheBoxIsShownWhileTheCroppingPageIsInFront) {
    auto guns = open(kGunsPageId);
    EXPECT_FALSE(box().isVisible());
    redraws = 0;
    page->show();
    EXPECT_TRUE(box().isVisible());
    EXPECT_GT(redraws, 0);
    guns->show();
    EXPECT_FALSE(box().isVisible());
    move(0, 300);
    EXPECT_FALSE(tool().over) << "what is hidden is not hit";
}

// Bound objects.

class BoundNote final : public VxTDsObject {
public:
    std::int32_t propertyChanged(const GUID&, const DSVARIANT*) override {
        return ++changes, moves;
    }
    void timeChanged(double seconds) override { time = seconds; }
    void writeProperties() override {}
    void readProperties() override { ++reads; }

    int changes = 0;
    int moves = 0;
    int reads = 0;
    double time = -1.0;
};

TEST_F(Interact, BoundObjectsHearOfChangesAndOneRedrawFollows) {
    BoundNote first;
    BoundNote second;
    redraws = 0;
    tool().AddDsObject(nullptr);
    EXPECT_EQ(redraws, 0);
    tool().AddDsObject(&first);
    EXPECT_EQ(first.reads, 1);
    EXPECT_EQ(redraws, 1);
    tool().AddDsObject(&second);
    tool().AddDsObject(&first);
    EXPECT_EQ(first.reads, 1) << "is bound";
    redraws = 0;
    set(ParameterId::Seed, 5);
    EXPECT_EQ(first.changes + second.changes, 2);
    EXPECT_EQ(redraws, 0);
    first.moves = second.moves = 1;
    set(ParameterId::Seed, 6);
    EXPECT_EQ(redraws, 1);
    editor->setTime(3.0);
    EXPECT_EQ(first.time, 3.0);
    EXPECT_EQ(second.time, 3.0);
    tool().RemoveDsObject(&first);
    EXPECT_FALSE(first.tool);
    set(ParameterId::Seed, 7);
    EXPECT_EQ(first.changes, 2);
    EXPECT_EQ(second.changes, 3);
}

TEST(BoundObjects, LeaveOneToolForAnother) {
    const auto first = toolIn({});
    const auto second = toolIn({});
    BoundNote object;
    first->AddDsObject(&object);
    second->AddDsObject(&object);
    EXPECT_EQ(object.tool, second.get());
    EXPECT_TRUE(first->dsObjects.empty());
}

// Lifetimes: page, tool and effect in all orders.

enum class Part { Page, Tool, Effect };

class Deaths : public testing::TestWithParam<std::vector<Part>> {
protected:
    static void SetUpTestSuite() { attachModule(); }
};

/// The page is opened without the editor, which would have to outlive it.
TEST_P(Deaths, LeaveNothingBehind) {
    auto session = std::make_unique<runtime::EffectSession>(
        runtime::EffectSession::Setup{.project = {.width = 720, .height = 576}});
    auto editor = std::make_unique<runtime::Editor>(*session);
    auto viewer = std::make_unique<runtime::Viewer>(*editor);
    auto page = ComPtr<IUnknown>(session->makeObject(kCropPageId)).query<IPropertyPage>();
    IUnknown* effect = &session->effect();
    ASSERT_EQ(page->SetObjects(1, &effect), S_OK);
    ASSERT_EQ(page->Activate(nullptr, nullptr, FALSE), S_OK);
    auto tool = interactiveTool(VWControllerContexts().at(0).tool.get());
    ASSERT_TRUE(tool->isLinked);
    const auto end = [&](Part part) {
        if (part == Part::Page) {
            page->Deactivate();
            page->SetObjects(0, nullptr);
            page.reset();
        } else if (part == Part::Tool) {
            // The host lets go of it, whatever pages do.
            for (const VWContext& context : VWControllerContexts()) {
                VWControllerRemoveContext(context.id);
            }
            tool.reset();
        } else {
            // An open page keeps it for a while.
            viewer.reset();
            editor.reset();
            session.reset();
        }
    };
    for (const Part part : GetParam()) {
        end(part);
        if (!tool) continue;
        EXPECT_EQ(tool->OnOnTimeChange(1.0), S_OK);
        const tagVWPENEVENT event{.button = 1, .x = 0.0, .y = 300.0};
        EXPECT_FALSE(FAILED(tool->OnPenDown(&event)));
        EXPECT_FALSE(FAILED(tool->OnPenUp(&event)));
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK) << objectCount;
}

INSTANTIATE_TEST_SUITE_P(AllOrders, Deaths,
                         testing::Values(std::vector{Part::Page, Part::Tool, Part::Effect},
                                         std::vector{Part::Page, Part::Effect, Part::Tool},
                                         std::vector{Part::Tool, Part::Page, Part::Effect},
                                         std::vector{Part::Tool, Part::Effect, Part::Page},
                                         std::vector{Part::Effect, Part::Page, Part::Tool},
                                         std::vector{Part::Effect, Part::Tool, Part::Page}));

TEST(Lifetimes, ATreeMayGoBeforeOrAfterItsBox) {
    const DSContent content = contentOf(720, 576, 720, 576);
    const DSContentScope scope(content);
    auto crop = std::make_unique<VxTDsCrop>();
    {
        const auto tool = toolIn(content);
        crop->setParent(&tool->viewZero);
        tool->AddDsObject(crop.get());
    }
    EXPECT_FALSE(crop->parent || crop->manager || crop->tool);
    const auto tool = toolIn(content);
    crop->setParent(&tool->viewZero);
    tool->AddDsObject(crop.get());
    crop.reset();
    EXPECT_TRUE(tool->viewZero.children.empty());
    EXPECT_TRUE(tool->dsObjects.empty());
}

}  // namespace
}  // namespace ruvex::test
