// What the user does in the controls of a page, up to the undo steps.

#include "pages/resources/resource_ids.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

class Edits : public PageTest {
protected:
    std::size_t steps() { return editor->undoStack().undoCount(); }
    std::wstring lastStep() { return editor->undoStack().undoName(); }
};

TEST_F(Edits, ATypedNumberIsOneStepAndReachesAllPages) {
    const auto main = open(kRuvexPageId);
    const auto effects = open(kEffectsPageId);
    type(effects, IDC_BLUR, "2.5");
    EXPECT_EQ(value(ParameterId::Blur), 2.5);
    EXPECT_EQ(steps(), 1u);
    EXPECT_EQ(lastStep(), L"Blur");
    expectControlsShow(main, *editor);
    expectControlsShow(effects, *editor);
    editor->undo();
    EXPECT_EQ(value(ParameterId::Blur), 0.0);
    EXPECT_EQ(number(effects, IDC_BLUR)->text(), "0");
    editor->redo();
    EXPECT_EQ(number(effects, IDC_BLUR)->text(), "2.5");
}

TEST_F(Edits, TypingNothingNewIsNoStepAndRoundsNothing) {
    const auto page = open(kEffectsPageId);
    set(ParameterId::Blur, 1.0 / 3.0);
    type(page, IDC_BLUR, number(page, IDC_BLUR)->text());
    EXPECT_EQ(value(ParameterId::Blur), 1.0 / 3.0);
    EXPECT_EQ(steps(), 0u);
}

TEST_F(Edits, ADragIsOneStepAndCanBeCancelled) {
    const auto page = open(kRuvexPageId);
    const auto level = number(page, IDC_MASTER_BREAKUP);
    level->beginDrag();
    for (const int pixels : {10, 20, -40}) {
        level->drag(pixels);
        EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0 + pixels / 2);
    }
    level->endDrag();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 30.0);
    EXPECT_EQ(steps(), 1u);
    EXPECT_EQ(lastStep(), L"Master Breakup");
    level->beginDrag();
    level->drag(40);
    EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
    level->revert();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 30.0);
    EXPECT_EQ(level->value(), 30.0);
    EXPECT_EQ(steps(), 1u);
    editor->undo();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
}

TEST_F(Edits, TwoDragsMayEndInTheOrderOfTheirBeginning) {
    const auto main = open(kRuvexPageId);
    const auto effects = open(kEffectsPageId);
    const auto level = number(main, IDC_MASTER_BREAKUP);
    const auto blur = number(effects, IDC_BLUR);
    level->beginDrag();
    blur->beginDrag();
    level->drag(10);
    blur->drag(4);
    level->endDrag();
    blur->endDrag();
    EXPECT_FALSE(editor->undoStack().isRecording());
    EXPECT_EQ(steps(), 1u);
    editor->undo();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
    EXPECT_EQ(value(ParameterId::Blur), 0.0);
}

TEST_F(Edits, ACancelledDragGoesBackAlsoWhenAnotherHasBegun) {
    const auto main = open(kRuvexPageId);
    const auto effects = open(kEffectsPageId);
    const auto level = number(main, IDC_MASTER_BREAKUP);
    const auto blur = number(effects, IDC_BLUR);
    level->beginDrag();
    level->drag(10);
    blur->beginDrag();
    level->revert();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
    blur->endDrag();
    EXPECT_FALSE(editor->undoStack().isRecording());
    EXPECT_EQ(steps(), 0u) << "nothing has changed";
}

TEST_F(Edits, ADragThatReturnsIsNoStep) {
    const auto page = open(kRuvexPageId);
    const auto level = number(page, IDC_MASTER_BREAKUP);
    level->beginDrag();
    level->drag(10);
    level->drag(0);
    level->endDrag();
    EXPECT_EQ(steps(), 0u);
}

TEST_F(Edits, ArrowKeysInSuccessionAreOneStep) {
    const auto page = open(kRuvexPageId);
    const auto level = number(page, IDC_MASTER_BREAKUP);
    for (int i = 0; i < 5; ++i) {
        level->step(1);
        clock += 0.5;
    }
    EXPECT_EQ(value(ParameterId::MasterBreakup), 55.0);
    EXPECT_EQ(steps(), 1u);
    clock += 0.7;
    level->step(-1, DSStepKeys::Shift);
    EXPECT_EQ(steps(), 2u);
    number(page, IDC_BREAKUP_SPEED)->step(1);
    level->step(1);
    EXPECT_EQ(steps(), 4u) << "another control in between";
    editor->undo();
    editor->undo();
    editor->undo();
    editor->undo();
    EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
}

TEST_F(Edits, AChoiceAndACheckBoxAreOneStepEach) {
    const auto main = open(kRuvexPageId);
    const auto effects = open(kEffectsPageId);
    EXPECT_TRUE(DSChooseItem(item(main, IDC_TV_TYPE), 2));
    EXPECT_EQ(value(ParameterId::TvType), 2.0);
    EXPECT_EQ(lastStep(), L"TV Type");
    EXPECT_TRUE(DSClickButton(item(effects, IDC_FISH_EYE)));
    EXPECT_EQ(value(ParameterId::FishEye), 1.0);
    EXPECT_EQ(lastStep(), L"Fish Eye");
    EXPECT_EQ(steps(), 2u);
    editor->undo();
    EXPECT_FALSE(state(effects, IDC_FISH_EYE).checked);
    editor->undo();
    EXPECT_EQ(state(main, IDC_TV_TYPE).selection, 0);
}

TEST_F(Edits, AKeyedValueGetsAKeyAtTheCurrentTime) {
    const auto page = open(kRuvexPageId);
    const GUID level = row(ParameterId::MasterBreakup).identifier;
    session->setKeys(level, {{0.0, 10.0}, {4.0, 90.0}});
    editor->setTime(2.0);
    EXPECT_EQ(number(page, IDC_MASTER_BREAKUP)->value(), 50.0) << "follows the time";
    type(page, IDC_MASTER_BREAKUP, "20");
    EXPECT_EQ(session->keys(level), (std::vector<DSKey>{{0.0, 10.0}, {2.0, 20.0}, {4.0, 90.0}}));
    editor->undo();
    EXPECT_EQ(session->keys(level), (std::vector<DSKey>{{0.0, 10.0}, {4.0, 90.0}}));
    EXPECT_EQ(number(page, IDC_MASTER_BREAKUP)->value(), 50.0);
}

TEST_F(Edits, AnEditOfAnotherPageOfTheSameKindIsShown) {
    const auto first = open(kGunsPageId);
    const auto second = open(kGunsPageId);
    type(first, IDC_ALIGN_RED_X, "-12");
    EXPECT_EQ(number(second, IDC_ALIGN_RED_X)->text(), "-12");
    number(second, IDC_ALIGN_RED_X)->step(1);
    EXPECT_EQ(number(first, IDC_ALIGN_RED_X)->text(), "-11");
}

TEST_F(Edits, OpeningPagesChangesNothing) {
    randomise(3);
    set(ParameterId::Seed, 20000.0);
    set(ParameterId::TvType, 7.0);
    set(ParameterId::CropLeft, -40.0);
    const auto before = states();
    {
        std::vector<std::unique_ptr<runtime::OpenPage>> pages;
        for (const GUID& id : kPageIds) pages.push_back(open(id));
        for (const auto& page : pages) {
            page->hide();
            page->show();
        }
        EXPECT_EQ(number(pages[0], IDC_SEED)->text(), "20000") << "outside of the range";
        EXPECT_EQ(state(pages[0], IDC_TV_TYPE).selection, -1) << "no such item";
    }
    expectSame(states(), before);
    EXPECT_EQ(steps(), 0u);
}

TEST_F(Edits, PagesHaveTheirTabs) {
    const std::wstring titles[] = {L"V_Ruvex", L"Guns",    L"Breakup 1", L"Breakup 2",
                                   L"Shash",   L"Effects", L"Cropping",  L"Help"};
    const auto ids = editor->pages();
    ASSERT_EQ(ids.size(), 8u);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(ids[i], kPageIds[i]);
        EXPECT_EQ(open(ids[i])->title(), titles[i]);
    }
    const auto page = open(kGunsPageId);
    PROPPAGEINFO info{};
    ASSERT_EQ(page->page().GetPageInfo(&info), S_OK);
    EXPECT_EQ(info.size.cx, 190);
    EXPECT_EQ(info.size.cy, 160);
    CoTaskMemFree(info.pszTitle);
}

TEST_F(Edits, AClickOnANumberOrAChipIsNoEdit) {
    const auto page = open(kRuvexPageId);
    const GUID level = row(ParameterId::MasterBreakup).identifier;
    session->setKeys(level, {{0.0, 10.0}, {4.0, 90.0}});
    set(ParameterId::TintColourR, 33.3);
    editor->setTime(2.0);
    const auto before = states();
    // Statics tell their dialog of clicks (code 0) and double clicks (code 1).
    for (const int id : {IDC_MASTER_BREAKUP, IDC_SEED, IDC_TINT_CHIP}) {
        for (const unsigned code : {0u, 1u}) {
            SendMessageW(page->window(), WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(id), code),
                         reinterpret_cast<LPARAM>(item(page, id)));
        }
    }
    expectSame(states(), before);
    EXPECT_EQ(steps(), 0u);
}

// The chip.

/// Counts how often the chip of a page is set, and the notifications of its object.
class Counted final : public ComObject<IDSPropertyObserver> {
public:
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        changed.push_back(id);
        return S_OK;
    }

    std::vector<GUID> changed;
};

class Chips : public Edits {
protected:
    Chips() { session->properties().Advise(observer.get(), &cookie_); }
    ~Chips() override { session->properties().Unadvise(cookie_); }

    int pick(const std::unique_ptr<runtime::OpenPage>& page, int id) {
        int sets = 0;
        const auto chipModel = chip(page, id);
        observer->changed.clear();
        bool picked = false;
        const auto before = DSObserveWindows(
            [&](HWND window, DSWindowChange) { sets += picked && window == item(page, id); });
        picked = true;
        chipModel->pick({200, 100, 50, 255});
        DSObserveWindows(before);
        // The pick itself changes the window once.
        return sets - 1;
    }

    ComPtr<Counted> observer = ComPtr<Counted>::attach(new Counted);

private:
    ULONG cookie_ = 0;
};

TEST_F(Chips, APickOnTheMainPageWritesThreeNumbersAndLeavesTheChipAlone) {
    const auto page = open(kRuvexPageId);
    set(ParameterId::TvType, 2.0);
    EXPECT_EQ(pick(page, IDC_TINT_CHIP), 0);
    EXPECT_EQ(observer->changed, (std::vector<GUID>{row(ParameterId::TintColourR).identifier,
                                                    row(ParameterId::TintColourG).identifier,
                                                    row(ParameterId::TintColourB).identifier}));
    EXPECT_EQ(value(ParameterId::TintColourR), 200 * 100.0 / 255.0);
    EXPECT_EQ(number(page, IDC_TINT_GREEN)->value(), 100 * 100.0 / 255.0);
    EXPECT_EQ(steps(), 1u);
    EXPECT_EQ(lastStep(), L"Tint Colour");
}

TEST_F(Chips, APickOnTheCropPageSetsTheChipThreeTimesAndIsThreeSteps) {
    const auto page = open(kCropPageId);
    EXPECT_EQ(pick(page, IDC_CROP_CHIP), 3);
    EXPECT_EQ(observer->changed.size(), 3u);
    EXPECT_EQ(steps(), 3u);
    EXPECT_EQ(value(ParameterId::CropColourA), 0.0) << "alpha is not the chip's";
    EXPECT_EQ(chip(page, IDC_CROP_CHIP)->colour(), (CDSColourChip::Colour{200, 100, 50, 255}));
}

TEST_F(Chips, ANumberColoursTheChip) {
    const auto main = open(kRuvexPageId);
    set(ParameterId::TvType, 2.0);
    type(main, IDC_TINT_RED, "64.5");
    EXPECT_EQ(chip(main, IDC_TINT_CHIP)->colour()[0], 164);
    const auto crop = open(kCropPageId);
    type(crop, IDC_CROP_BLUE, "99.9");
    EXPECT_EQ(chip(crop, IDC_CROP_CHIP)->colour()[2], 254);
    type(crop, IDC_CROP_ALPHA, "50");
    EXPECT_EQ(chip(crop, IDC_CROP_CHIP)->colour()[3], 255);
}

TEST_F(Chips, HaveTheirColourWhenThePageIsOpened) {
    set(ParameterId::TintColourR, 24.0);
    session->setKeys(row(ParameterId::CropColourG).identifier, {{0.0, 0.0}, {10.0, 100.0}});
    editor->setTime(5.0);
    EXPECT_EQ(chip(open(kRuvexPageId), IDC_TINT_CHIP)->colour(),
              (CDSColourChip::Colour{61, 165, 76, 255}));
    EXPECT_EQ(chip(open(kCropPageId), IDC_CROP_CHIP)->colour(),
              (CDSColourChip::Colour{0, 127, 0, 255}));
}

TEST_F(Chips, FollowTheTimeAlsoBehindOtherPages) {
    const auto main = open(kRuvexPageId);
    const auto crop = open(kCropPageId);
    main->hide();
    session->setKeys(row(ParameterId::TintColourG).identifier, {{0.0, 0.0}, {10.0, 100.0}});
    session->setKeys(row(ParameterId::CropColourR).identifier, {{0.0, 100.0}, {10.0, 0.0}});
    editor->setTime(5.0);
    EXPECT_EQ(chip(main, IDC_TINT_CHIP)->colour()[1], 127);
    EXPECT_EQ(chip(crop, IDC_CROP_CHIP)->colour()[0], 127);
    editor->setTime(10.0);
    EXPECT_EQ(chip(main, IDC_TINT_CHIP)->colour()[1], 255);
    EXPECT_EQ(chip(crop, IDC_CROP_CHIP)->colour()[0], 0);
}

}  // namespace
}  // namespace ruvex::test
