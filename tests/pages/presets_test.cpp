// The list of presets, against a table of its own.

#include "pages/resources/resource_ids.h"
#include "tests/pages/page_test.h"
#include "tests/pages/written_values.h"
#include "tests/parameters/released_presets.h"

namespace ruvex::test {
namespace {

using Page = std::unique_ptr<runtime::OpenPage>;

class Presets : public PageTest {
protected:
    std::size_t steps() { return editor->undoStack().undoCount(); }
    void choose(int item_) { EXPECT_TRUE(DSChooseItem(item(main, IDC_PRESETS), item_)); }
    void expectTitle() const { EXPECT_EQ(state(main, IDC_PRESETS).selection, 0); }

    Page main = open(kRuvexPageId);
};

TEST_F(Presets, TheTitleOfTheListDoesNothing) {
    randomise(11);
    editor->setValue(row(ParameterId::Blur).identifier, 3.0);
    editor->undo();
    const auto before = states();
    const WrittenValues written(session->properties());
    choose(0);
    EXPECT_TRUE(written.writes().empty());
    EXPECT_EQ(steps(), 0u);
    EXPECT_EQ(editor->undoStack().redoCount(), 1u) << "what was undone can still be redone";
    expectSame(states(), before);
    expectTitle();
}

TEST_F(Presets, CanBeChosenTwiceInARow) {
    for (int i = 0; i < 2; ++i) {
        choose(2);
        EXPECT_EQ(value(ParameterId::MasterBreakup), 50.0);
        expectTitle();
        set(ParameterId::MasterBreakup, 1.0);
    }
}

TEST_F(Presets, AreOneStepEach) {
    for (int preset = 1; preset <= 8; ++preset) {
        randomise(static_cast<unsigned>(preset));
        const auto before = states();
        const std::size_t stepsBefore = steps();
        choose(preset);
        EXPECT_EQ(steps(), stepsBefore + 1);
        const auto after = states();
        editor->undo();
        expectSame(states(), before);
        expectTitle();
        editor->redo();
        expectSame(states(), after);
        expectTitle();
    }
    EXPECT_EQ(editor->undoStack().undoName(), L"Preset: Cable Out");
}

TEST_F(Presets, WriteTheirColumnInOrder) {
    for (int preset = 0; preset < 8; ++preset) {
        SCOPED_TRACE(preset);
        std::vector<WrittenValues::Write> expected;
        for (const ReleasedPresetRow& row : kReleasedPresets) {
            const std::string text = row.values[preset];
            if (text == "-") continue;
            const double number = text == "on" ? 1.0 : text == "off" ? 0.0 : std::stod(text);
            expected.emplace_back(findParameter(std::string_view(row.label))->id, number);
        }
        const WrittenValues written(session->properties());
        choose(preset + 1);
        EXPECT_EQ(written.writes(), expected);
    }
}

TEST_F(Presets, LeaveBorderAlphaAndTheCropAlone) {
    const auto isCrop = [](const ParameterRow& row) {
        return row.page == ParameterPage::Cropping || row.id == ParameterId::BorderAlpha;
    };
    randomise(5);
    const auto before = states();
    for (int preset = 1; preset <= 8; ++preset) choose(preset);
    const auto after = states();
    int left = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const ParameterRow& row = *findParameter(before[i].id);
        if (!isCrop(row) && row.page != ParameterPage::Host) continue;
        EXPECT_TRUE(runtime::sameBits(before[i], after[i])) << row.label;
        ++left;
    }
    EXPECT_EQ(left, 17) << "twelve of the crop, Border Alpha, four channel masks";
}

TEST_F(Presets, ShowTheirTint) {
    choose(7);
    EXPECT_TRUE(state(main, IDC_TINT_CHIP).shown());
    EXPECT_FALSE(state(main, IDC_TV_COLOUR).shown());
    EXPECT_EQ(value(ParameterId::TintColourR), 24.0);
    EXPECT_EQ(value(ParameterId::TintColourG), 64.5);
    EXPECT_EQ(value(ParameterId::TintColourB), 30.0);
    EXPECT_EQ(number(main, IDC_TINT_GREEN)->text(), "64.5");
    EXPECT_EQ(chip(main, IDC_TINT_CHIP)->colour(), (CDSColourChip::Colour{61, 164, 76, 255}));
    choose(3);
    EXPECT_FALSE(state(main, IDC_TINT_CHIP).shown());
    EXPECT_FALSE(state(main, IDC_TV_COLOUR).shown());
    EXPECT_EQ(value(ParameterId::TintColourG), 64.5) << "stays";
}

TEST_F(Presets, SetAKeyOfWhatIsAnimated) {
    const GUID level = row(ParameterId::MasterBreakup).identifier;
    session->setKeys(level, {{0.0, 10.0}, {4.0, 90.0}});
    editor->setTime(2.0);
    choose(4);
    EXPECT_EQ(session->keys(level), (std::vector<DSKey>{{0.0, 10.0}, {2.0, 0.0}, {4.0, 90.0}}));
    editor->undo();
    EXPECT_EQ(session->keys(level), (std::vector<DSKey>{{0.0, 10.0}, {4.0, 90.0}}));
}

TEST_F(Presets, ReachAllOpenPages) {
    std::vector<Page> pages;
    for (const GUID& id : kPageIds) pages.push_back(open(id));
    pages.push_back(open(kRuvexPageId));
    for (int preset = 1; preset <= 8; ++preset) {
        randomise(static_cast<unsigned>(preset) + 20);
        choose(preset);
        for (const Page& page : pages) expectControlsShow(page, *editor);
        editor->undo();
        for (const Page& page : pages) expectControlsShow(page, *editor);
    }
}

}  // namespace
}  // namespace ruvex::test
