#include "runtime/editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/error.h"
#include "tests/runtime/scripted_page.h"

namespace ruvex::runtime::test {
namespace {

using ::testing::ElementsAre;

constexpr GUID kNoParameter = guidFromText("77A1C001-0000-4000-8000-0000000000FD");

TEST_F(EditorTest, NamesThePagesInTheOrderOfTheirTabs) {
    EXPECT_THAT(editor.pages(), ElementsAre(kFirstPageId, kSecondPageId));
}

TEST_F(EditorTest, EditsAreStepsOfTheirOwn) {
    editor.setValue(kLiftId, 5.0);
    editor.setValue(kInvertId, 1.0);
    const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0, DSKeyMode::Hold}};
    editor.setKeys(kDelayId, keys);
    EXPECT_EQ(stack().undoCount(), 3u);
    EXPECT_EQ(session.keys(kDelayId).size(), 2u);
    editor.clearKeys(kDelayId);
    EXPECT_EQ(stack().undoName(), L"Remove keys: ");
    EXPECT_TRUE(session.keys(kDelayId).empty());
    editor.clearKeys(kDelayId);
    EXPECT_EQ(stack().undoCount(), 4u) << "there were no keys";
    for (int i = 0; i < 4; ++i) editor.undo();
    EXPECT_EQ(stack().undoCount(), 0u);
    EXPECT_EQ(lift(), 0);
    EXPECT_EQ(session.value(kInvertId), 0.0);
    editor.undo();
    editor.redo();
    EXPECT_EQ(lift(), 5);
}

TEST_F(EditorTest, AnEditOfAnAnimatedRealSetsAKeyAtTheCurrentTime) {
    const DSKey keys[] = {{0.0, 1.0}, {4.0, 5.0}};
    editor.setKeys(kDelayId, keys);
    editor.setTime(2.0);
    editor.setValue(kDelayId, 9.0);
    EXPECT_EQ(session.keys(kDelayId), (std::vector<DSKey>{keys[0], {2.0, 9.0}, keys[1]}));
    editor.undo();
    EXPECT_EQ(session.keys(kDelayId), (std::vector<DSKey>{keys[0], keys[1]}));
}

TEST_F(EditorTest, RefusesWhatDoesNotFit) {
    EXPECT_THROW(editor.setValue(kNoParameter, 1.0), Error);
    EXPECT_THROW(editor.setValue(kLiftId, 0.5), Error);
    EXPECT_THROW(editor.setValue(kInvertId, 2.0), Error);
    const DSKey keys[] = {{0.0, 1.0}};
    EXPECT_THROW(editor.setKeys(kLiftId, keys), StatusError);
    EXPECT_THROW(editor.clearKeys(kNoParameter), Error);
    EXPECT_THROW(editor.setTime(-1.0), Error);
    EXPECT_THROW(editor.setTime(std::numeric_limits<double>::quiet_NaN()), Error);
    EXPECT_EQ(editor.time(), 0.0);
    EXPECT_EQ(stack().undoCount(), 0u);
    EXPECT_FALSE(stack().isRecording());
}

TEST_F(EditorTest, LoadsAStateAsOneStep) {
    const States before = readStates(session.properties());
    const States loaded = {{kLiftId, DSVariantFromLong(7), {}},
                           {kOldDelayId, DSVariantFromReal(0.25), {{1.0, 2.0}}}};
    ChangeCounter changes(session.properties());
    editor.loadState(loaded, L"Load");
    EXPECT_EQ(changes.all, 1);
    EXPECT_EQ(stack().undoName(), L"Load");
    EXPECT_EQ(lift(), 7);
    EXPECT_EQ(session.keys(kDelayId), (std::vector<DSKey>{{1.0, 2.0}}));
    editor.undo();
    EXPECT_TRUE(sameStates(readStates(session.properties()), before));
    EXPECT_THROW(editor.loadState(States{{kLiftId, DSVariantFromReal(7.0), {}}}, L"Load"),
                 StatusError);
    EXPECT_EQ(stack().redoCount(), 1u);
}

TEST_F(EditorTest, AnAliasAndItsPropertyAreOneInAStep) {
    {
        const UndoBracket bracket(stack(), L"Both");
        editor.setValue(kDelayId, 1.0);
        editor.setValue(kOldDelayId, 2.0);
    }
    editor.undo();
    EXPECT_EQ(session.value(kDelayId), 0.0);
    editor.redo();
    EXPECT_EQ(session.value(kDelayId), 2.0);
}

TEST_F(EditorTest, UndoWaitsForTheEndOfABracket) {
    editor.setValue(kLiftId, 5.0);
    const UndoBracket bracket(stack(), L"Drag");
    editor.undo();
    EXPECT_EQ(lift(), 5);
    EXPECT_EQ(stack().undoCount(), 1u);
}

}  // namespace
}  // namespace ruvex::runtime::test
