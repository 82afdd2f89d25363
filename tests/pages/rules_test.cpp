// Which controls of a page are shown and enabled.

#include "pages/resources/resource_ids.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

using Page = std::unique_ptr<runtime::OpenPage>;

class Rules : public PageTest {
protected:
    static bool shown(const Page& page, int id) { return state(page, id).shown(); }
    static bool enabled(const Page& page, int id) { return state(page, id).enabled(); }

    /// The controls that TV Type shows: TV Colour with its caption, and the eight of the tint.
    static void expectTvType(const Page& main, int type) {
        SCOPED_TRACE(type);
        for (const int id : {IDC_TV_COLOUR, CAPTION_OF(IDC_TV_COLOUR)}) {
            EXPECT_EQ(shown(main, id), type == 0) << id;
        }
        for (const int id : {1009, 1010, 1011, 2011, 1012, 2012, 1013, 2013}) {
            EXPECT_EQ(shown(main, id), type == 2) << id;
        }
        EXPECT_FALSE(shown(main, CAPTION_OF(IDC_PRESETS))) << "is never touched";
    }
    static void expectColourSet(const Page& guns, const Page& breakup, bool colour) {
        for (int id = 1063; id <= 1071; ++id) {
            EXPECT_EQ(enabled(guns, id), colour) << id;
            EXPECT_TRUE(enabled(guns, id + 1000)) << "captions stay";
        }
        for (int id = 1074; id <= 1084; ++id) {
            EXPECT_EQ(enabled(breakup, id), colour || id > 1075) << id;
        }
    }
};

TEST_F(Rules, TvTypeShowsItsColoursAndEnablesTheGuns) {
    const Page main = open(kRuvexPageId);
    const Page guns = open(kGunsPageId);
    const Page breakup = open(kBreakup1PageId);
    expectTvType(main, 0);
    expectColourSet(guns, breakup, true);
    for (const int type : {1, 2, 0, 1, 0}) {
        DSChooseItem(item(main, IDC_TV_TYPE), type);
        expectTvType(main, type);
        expectColourSet(guns, breakup, type == 0);
    }
    for (const double other : {3.0, -1.0}) {
        set(ParameterId::TvType, other);
        expectTvType(main, 3);
        expectColourSet(guns, breakup, false);
    }
}

TEST_F(Rules, TheTintIsThereHoweverItWasChosen) {
    const Page main = open(kRuvexPageId);
    const auto behind = [&](const std::function<void()>& change) {
        main->hide();
        const Page guns = open(kGunsPageId);
        change();
        main->show();
    };
    behind([&] {
        DSChooseItem(item(main, IDC_PRESETS), 7);
        set(ParameterId::TvType, 2.0);
    });
    expectTvType(main, 2);
    behind([&] { set(ParameterId::TvType, 1.0); });
    expectTvType(main, 1);
    behind([&] { editor->setValue(row(ParameterId::TvType).identifier, 2.0); });
    expectTvType(main, 2);
    behind([&] { editor->undo(); });
    expectTvType(main, 1);
    behind([&] { editor->redo(); });
    expectTvType(main, 2);
    const auto stored = states();
    behind([&] { set(ParameterId::TvType, 0.0); });
    expectTvType(main, 0);
    behind([&] { editor->loadState(stored, L"Load"); });
    expectTvType(main, 2);
}

TEST_F(Rules, ATypeSetBeforeThePageIsOpenedCounts) {
    set(ParameterId::TvType, 1.0);
    set(ParameterId::ShashType, 2.0);
    set(ParameterId::FishEye, 1.0);
    expectTvType(open(kRuvexPageId), 1);
    const Page guns = open(kGunsPageId);
    const Page breakup = open(kBreakup1PageId);
    expectColourSet(guns, breakup, false);
    EXPECT_FALSE(enabled(open(kShashPageId), IDC_SHASH_PERIOD));
    EXPECT_TRUE(enabled(open(kEffectsPageId), IDC_FILTER));
}

TEST_F(Rules, RandomShashHasAPeriod) {
    const Page page = open(kShashPageId);
    EXPECT_TRUE(enabled(page, IDC_SHASH_PERIOD));
    for (int type = 0; type < 6; ++type) {
        DSChooseItem(item(page, IDC_SHASH_TYPE), type);
        EXPECT_EQ(enabled(page, IDC_SHASH_PERIOD), type == 5) << type;
        EXPECT_TRUE(enabled(page, IDC_SHASH_AMOUNT_MAX));
    }
    DSChooseItem(item(page, IDC_SHASH_TYPE), 0);
    DSClickButton(item(page, IDC_SHASH_RESET));
    EXPECT_TRUE(enabled(page, IDC_SHASH_PERIOD)) << "Reset chooses Random";
}

TEST_F(Rules, TheLensEnablesItsNumbers) {
    const Page page = open(kEffectsPageId);
    const auto expectLens = [&](bool on) {
        for (const int id : {IDC_FISH_EYE_RADIUS, IDC_FISH_EYE_POWER, IDC_FILTER}) {
            EXPECT_EQ(enabled(page, id), on) << id;
        }
        EXPECT_TRUE(enabled(page, IDC_FISH_EYE));
        EXPECT_TRUE(enabled(page, IDC_BLUR));
    };
    expectLens(false);
    DSClickButton(item(page, IDC_FISH_EYE));
    expectLens(true);
    editor->undo();
    expectLens(false);
}

TEST_F(Rules, ResetOfTheEffectsEndsWithTheLensOff) {
    const Page page = open(kEffectsPageId);
    DSClickButton(item(page, IDC_FISH_EYE));
    DSClickButton(item(page, IDC_FILTER));
    DSClickButton(item(page, IDC_EFFECTS_RESET));
    EXPECT_EQ(value(ParameterId::FishEye), 0.0);
    EXPECT_EQ(value(ParameterId::FishEyeRadius), 400.0);
    for (const int id : {IDC_FISH_EYE_RADIUS, IDC_FISH_EYE_POWER, IDC_FILTER}) {
        EXPECT_FALSE(enabled(page, id)) << id;
    }
    EXPECT_FALSE(state(page, IDC_FILTER).checked);
}

// What the pages set up in their controls.

TEST_F(Rules, VertRollSpeedTakesTenTimesItsTitlesRange) {
    const Page page = open(kBreakup2PageId);
    type(page, IDC_VERT_ROLL_SPEED_MAX, "10000");
    EXPECT_EQ(value(ParameterId::VertRollSpeedMax), 10000.0);
    type(page, IDC_VERT_ROLL_SPEED_MAX, "10001");
    EXPECT_EQ(value(ParameterId::VertRollSpeedMax), 10000.0);
    EXPECT_EQ(number(page, IDC_VERT_ROLL_SPEED_MAX)->low(), -10000.0);
    // Before the page has set it, the range is that of the title.
    const HWND dialog = CreateDialogParamW(
        moduleInstance, MAKEINTRESOURCEW(IDD_BREAKUP2), nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return 0; }, 0);
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const auto untouched = DSNumberControlOf(GetDlgItem(dialog, IDC_VERT_ROLL_SPEED_MAX));
    EXPECT_EQ(untouched->high(), 1000.0);
    EXPECT_EQ(untouched->low(), -1000.0);
    DSReleaseControls(dialog);
    DestroyWindow(dialog);
}

TEST_F(Rules, NumbersHaveTheRangesOfTheirParameters) {
    int numbers = 0;
    for (const GUID& id : kPageIds) {
        const Page page = open(id);
        for (const CDSPPGControlMapEntry& entry :
             as<CDSBasePropertyPage>(page).GetControlMap()->entries()) {
            const auto control =
                DSNumberControlOf(as<CDSBasePropertyPage>(page).GetHwndControl(entry.controlId));
            const ParameterRow* const row = findParameter(entry.property);
            if (!control) continue;
            ++numbers;
            EXPECT_EQ(control->low(), row->enteredRange()->low) << row->label;
            EXPECT_EQ(control->high(), row->enteredRange()->high) << row->label;
            EXPECT_EQ(control->label(), row->label);
            EXPECT_EQ(control->decimals(), row->decimals.value_or(3)) << row->label;
        }
    }
    EXPECT_EQ(numbers, 62);
}

struct Combo {
    GUID page;
    int id;
    std::vector<std::wstring> items;
    int selected;
};

TEST_F(Rules, CombosHaveTheirItemsInOrder) {
    const Combo combos[] = {
        {kRuvexPageId,
         1008,
         {L"Presets...", L"Good TV", L"Bad Colour TV", L"Bad B&W TV", L"Offset Guns",
          L"Security Camera", L"Aerial SpyCam", L"NightVision", L"Cable Out"},
         0},
        {kRuvexPageId, 1000, {L"Colour", L"B & W", L"Tint"}, 0},
        {kShashPageId, 1100, {L"Type 1", L"Type 2", L"Type 3", L"Type 4", L"Type 5", L"Random"}, 5},
        {kEffectsPageId, 1106, {L"Video", L"DVD"}, 0},
        {kEffectsPageId, 1117, {L"None", L"Full", L"Banded"}, 0},
        {kCropPageId, 5004, {L"Colour", L"Repeat", L"Reflect", L"Wrap"}, 2},
        {kCropPageId, 5005, {L"Colour", L"Repeat", L"Reflect", L"Wrap"}, 2},
    };
    for (const Combo& combo : combos) {
        const Page page = open(combo.page);
        EXPECT_EQ(state(page, combo.id).items, combo.items);
        EXPECT_EQ(state(page, combo.id).selection, combo.selected) << combo.id;
    }
    const Page page = open(kShashPageId);
    for (int i = 0; i < 6; ++i) {
        DSChooseItem(item(page, 1100), i);
        EXPECT_EQ(value(ParameterId::ShashType), i);
    }
}

TEST_F(Rules, BlankCroppedHasNoControl) {
    const Page page = open(kCropPageId);
    EXPECT_FALSE(item(page, IDC_BLANK_CROPPED));
    EXPECT_FALSE(item(page, CAPTION_OF(IDC_BLANK_CROPPED)));
    set(ParameterId::BlankCropped, 1.0);
    DSClickButton(item(page, IDC_CROPPING_RESET));
    EXPECT_EQ(value(ParameterId::BlankCropped), 0.0) << "Reset writes it";
}

}  // namespace
}  // namespace ruvex::test
