// Running out of memory at each allocation of the viewer, and of what tools do with it.

#include <gtest/gtest.h>
#include <new>
#include <optional>

#include "runtime/viewer.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/runtime/scripted_page.h"
#include "tests/support/reference_count.h"
#include "tests/support/watched_new.h"

namespace ruvex::runtime::test {
namespace {

using ruvex::test::countOf;
using ruvex::test::FailingNew;

/// A tool that needs no memory of its own.
class SmallTool final : public CDSInteractiveTool {
public:
    SmallTool() { SetInteractionName(L"A name that needs memory of its own, being long"); }

    HRESULT OnPenDown(const tagVWPENEVENT* event) override { return OnBeginInteraction(event); }
    HRESULT OnPenUp(const tagVWPENEVENT* event) override {
        const VARIANT value = DSVariantFromLong(static_cast<LONG>(event->x));
        written = SetAnimatedProperty(kLiftId, &value, nullptr, DSTIME_CURRENT, DSUNDO_JOIN);
        return TerminateInteraction();
    }

    using CDSInteractiveTool::isAttached;
    using CDSInteractiveTool::operatorObject;

    HRESULT written = S_OK;
};

class ViewerInLittleMemory : public EditorTest {
protected:
    HRESULT push(const ComPtr<SmallTool>& tool, IUnknown* object) {
        const auto scope = session.enter();
        return VWControllerPushContext(VWCONTEXT_INTERACTIVE_TOOL, tool.get(), object, nullptr,
                                       nullptr, 0.0, &context);
    }
    void remove() {
        const auto scope = session.enter();
        EXPECT_EQ(VWControllerRemoveContext(context), S_OK);
    }
    static HRESULT drag(Viewer& viewer, double position) {
        try {
            const HRESULT status = viewer.penDown({1, position, 0.0});
            viewer.penUp({1, position, 0.0});
            return status;
        } catch (const std::bad_alloc&) {
            viewer.releasePen();
            return E_OUTOFMEMORY;
        }
    }

    /// Calls `attempt` with allocation number `failing` failing. Whether it was reached.
    template <class Attempt>
    static bool reaches(std::size_t failing, Attempt attempt) {
        const FailingNew memory(failing);
        attempt();
        return memory.failed();
    }

    ULONG context = 0;
};

TEST_F(ViewerInLittleMemory, APushIsMadeOrRefused) {
    Viewer viewer(editor);
    const auto tool = ComPtr<SmallTool>::attach(new SmallTool);
    int refused = 0;
    // The second time the list of contexts has room, but not the object's list of observers.
    for (int repetition = 0; repetition < 2; ++repetition) {
        const auto object = makeEditedObject();
        HRESULT status = S_OK;
        for (std::size_t failing = 1; reaches(
                 failing, [&] { status = push(tool, static_cast<IDSProperties*>(object.get())); });
             ++failing) {
            ++refused;
            EXPECT_EQ(status, E_OUTOFMEMORY) << failing;
            EXPECT_FALSE(tool->isAttached()) << failing;
            EXPECT_EQ(tool->operatorObject(), nullptr) << failing;
            EXPECT_EQ(countOf(*tool), 1u) << failing;
            EXPECT_TRUE(VWControllerContexts().empty()) << failing;
        }
        EXPECT_EQ(status, S_OK);
        EXPECT_TRUE(tool->isAttached());
        remove();
    }
    EXPECT_EQ(refused, 4) << "the contexts, the observer, the observer, the object's observers";
}

TEST_F(ViewerInLittleMemory, AViewerIsMadeOrNot) {
    const auto tool = ComPtr<SmallTool>::attach(new SmallTool);
    ASSERT_EQ(push(tool, &session.effect()), S_OK);
    int refused = 0;
    std::optional<Viewer> viewer;
    const auto make = [&] {
        try {
            viewer.emplace(editor);
        } catch (const std::bad_alloc&) {
            ++refused;
        }
    };
    for (std::size_t failing = 1; reaches(failing, make); ++failing) {
        EXPECT_EQ(static_cast<bool>(VWControllerViewer()), viewer.has_value()) << failing;
        EXPECT_FALSE(tool->isAttached()) << "also if there is only no memory to link it";
        EXPECT_EQ(tool->operatorObject(), nullptr) << failing;
        viewer.reset();
    }
    EXPECT_TRUE(tool->isAttached());
    viewer.reset();
    EXPECT_GE(refused, 2) << "the list of followers, the viewer";
    EXPECT_FALSE(VWControllerViewer());
    editor.setTime(1.0);
    remove();
}

TEST_F(ViewerInLittleMemory, ADragIsMadeOrFails) {
    Viewer viewer(editor);
    const auto tool = ComPtr<SmallTool>::attach(new SmallTool);
    ASSERT_EQ(push(tool, &session.effect()), S_OK);
    int failures = 0;
    LONG position = 1;
    HRESULT status = S_OK;
    for (std::size_t failing = 1; reaches(failing, [&] { status = drag(viewer, position); });
         ++failing, ++position) {
        failures += status != S_OK || tool->written != S_OK;
        EXPECT_FALSE(stack().isRecording()) << failing;
        EXPECT_EQ(lift() == position, stack().undoCount() == 1) << failing;
        if (stack().undoCount() == 1) editor.undo();
        EXPECT_EQ(lift(), 0) << failing;
        tool->written = S_OK;
    }
    EXPECT_GE(failures, 3);
    EXPECT_EQ(lift(), position);
    remove();
}

}  // namespace
}  // namespace ruvex::runtime::test
