// Editing the real effect: the names of its steps, its pages, and all its properties through undo.

#include <gtest/gtest.h>

#include "runtime/editor.h"
#include "tests/effect/render_fixture.h"
#include "tests/runtime/edited_object.h"

namespace ruvex::runtime::test {
namespace {

class EffectEditor : public ::testing::Test {
protected:
    States states() { return readStates(session.properties()); }

    ruvex::test::Renderer renderer{{.width = 8, .height = 8}};
    EffectSession& session = renderer.session();
    Editor editor{session};
};

TEST_F(EffectEditor, NamesStepsAfterTheirProperty) {
    const GUID master = row(ParameterId::MasterBreakup).identifier;
    editor.setValue(master, 12.5);
    EXPECT_EQ(editor.undoStack().undoName(), L"Master Breakup");
    const DSKey keys[] = {{0.0, 1.0}};
    editor.setKeys(master, keys);
    editor.clearKeys(master);
    EXPECT_EQ(editor.undoStack().undoName(), L"Remove keys: Master Breakup");
}

TEST_F(EffectEditor, ListsEightPages) {
    EXPECT_EQ(editor.pages().size(), 8u);
}

TEST_F(EffectEditor, TheStoredStateHasAllButTheControlsOfTheInterface) {
    const States all = states();
    ULONG count = 0;
    session.properties().GetPropertyCount(&count);
    EXPECT_EQ(all.size() + 2, count);
    for (const PropertyState& state : all) {
        EXPECT_FALSE(state.id == row(ParameterId::Presets).identifier);
        EXPECT_FALSE(state.id == row(ParameterId::HideOverlayControls).identifier);
    }
}

VARIANT randomValue(std::mt19937& random, VARTYPE type) {
    if (type == VT_R8) return DSVariantFromReal(randomReal(random));
    if (type == VT_BOOL) return DSVariantFromBool(random() % 2 == 0);
    return DSVariantFromLong(static_cast<LONG>(random()));
}

TEST_F(EffectEditor, RandomStatesOfAllPropertiesComeBackBitForBit) {
    std::mt19937 random(3);
    for (int round = 0; round < 20; ++round) {
        const States before = states();
        States next = before;
        for (PropertyState& state : next) {
            state.plain = randomValue(random, state.plain.vt);
            const bool animated = session.definition(state.id)->animatable();
            if (animated) state.keys = randomKeys(random, 3);
        }
        ChangeCounter changes(session.properties());
        editor.loadState(next, L"Load");
        ASSERT_TRUE(sameStates(states(), next));
        editor.undo();
        ASSERT_TRUE(sameStates(states(), before));
        editor.redo();
        ASSERT_TRUE(sameStates(states(), next));
        EXPECT_EQ(changes.all, 3);
        EXPECT_EQ(changes.single, 0);
    }
}

}  // namespace
}  // namespace ruvex::runtime::test
