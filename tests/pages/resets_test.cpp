// The Reset button of each page, against a table of its own.

#include <algorithm>

#include "pages/resources/resource_ids.h"
#include "tests/pages/page_test.h"
#include "tests/pages/written_values.h"

namespace ruvex::test {
namespace {

struct Reset {
    GUID page;
    int button;
    const wchar_t* step;
    std::vector<std::pair<const char*, double>> values;
};

/// The values in the order in which they are written. Released; they do not follow the defaults.
const Reset kResets[] = {
    {kRuvexPageId,
     IDC_MAIN_RESET,
     L"Reset: V_Ruvex",
     {{"TV Type", 0},
      {"Seed", 5},
      {"TV Contrast", 0},
      {"TV Brightness", 0},
      {"TV Colour", 100},
      {"Master Breakup", 50},
      {"Breakup Variation", 100},
      {"Breakup Speed", 50},
      {"Tint Colour R", 25},
      {"Tint Colour G", 65},
      {"Tint Colour B", 30}}},
    {kGunsPageId,
     IDC_GUNS_RESET,
     L"Reset: Guns",
     {{"TV Brightness Red", 0},
      {"TV Brightness Green", 0},
      {"TV Brightness Blue", 0},
      {"Gun Align Red X", 0},
      {"Gun Align Red Y", 0},
      {"Gun Align Green X", 0},
      {"Gun Align Green Y", 0},
      {"Gun Align Blue X", 0},
      {"Gun Align Blue Y", 0}}},
    {kBreakup1PageId,
     IDC_BREAKUP1_RESET,
     L"Reset: Breakup 1",
     {{"Colour Degrade Max", 100},
      {"Colour Threshold", 50},
      {"Snow Max", 60},
      {"Snow Threshold", 0},
      {"Snow Softness", 3},
      {"Snow Sparseness", 15},
      {"Num Ghosts", 2},
      {"Ghosting Threshold", 20},
      {"Ghosting Distance Max", 50},
      {"Ghosting Strength", 100},
      {"Ghosting Speed", 50}}},
    {kBreakup2PageId,
     IDC_BREAKUP2_RESET,
     L"Reset: Breakup 2",
     {{"Edge Distortion Max", 100},
      {"Edge Jaggedness", 1},
      {"Edge Threshold", 40},
      {"Edge Speed", 50},
      {"Line Angle", 10},
      {"Line Spacing", 50},
      {"Line Speed Max", 100},
      {"Line Threshold", 50},
      {"Vert Offset Max", 200},
      {"Vert Offset Threshold", 80},
      {"Vert Roll Speed Max", 1000},
      {"Vert Roll Threshold", 90}}},
    {kShashPageId,
     IDC_SHASH_RESET,
     L"Reset: Shash",
     {{"Shash Type", 5},
      {"Shash Period", 0.5},
      {"Shash Amount Max", 100},
      {"Shash Threshold", 99}}},
    {kEffectsPageId,
     IDC_EFFECTS_RESET,
     L"Reset: Effects",
     {{"Scanline Width", 0},
      {"Play Mode", 0},
      {"Play Speed", 100},
      {"EM Interference", 0},
      {"White Dot", 0},
      {"Resolution", 100},
      {"Blur", 0},
      {"Repeat Frames", 1},
      {"Fish Eye", 0},
      {"Fish Eye Radius", 400},
      {"Fish Eye Power", 40},
      {"Filter", 0},
      {"Border Alpha", 0}}},
    {kCropPageId,
     IDC_CROPPING_RESET,
     L"Reset: Cropping",
     {{"Crop Left", 0},
      {"Crop Right", 100},
      {"Crop Bottom", 0},
      {"Crop Top", 100},
      {"X Edge Method", 2},
      {"Y Edge Method", 2},
      {"Crop Colour R", 0},
      {"Crop Colour G", 0},
      {"Crop Colour B", 0},
      {"Crop Colour A", 0},
      {"Display Cropped", 0},
      {"Blank Cropped", 0}}},
};

class Resets : public PageTest {
protected:
    static std::vector<WrittenValues::Write> writesOf(const Reset& reset) {
        std::vector<WrittenValues::Write> writes;
        for (const auto& [label, value] : reset.values) {
            writes.emplace_back(findParameter(std::string_view(label))->id, value);
        }
        return writes;
    }
    static bool contains(const Reset& reset, const GUID& id) {
        return std::ranges::any_of(reset.values, [&](const auto& value) {
            return findParameter(std::string_view(value.first))->identifier == id;
        });
    }
};

TEST_F(Resets, WriteTheirTableInOrder) {
    for (const Reset& reset : kResets) {
        const auto page = open(reset.page);
        const WrittenValues written(session->properties());
        EXPECT_TRUE(DSClickButton(item(page, reset.button)));
        EXPECT_EQ(written.writes(), writesOf(reset));
    }
}

TEST_F(Resets, ChangeNothingElseAndAreOneStep) {
    unsigned seed = 100;
    for (const Reset& reset : kResets) {
        SCOPED_TRACE(testing::Message() << reset.button);
        const auto page = open(reset.page);
        randomise(seed++);
        const auto before = states();
        const std::size_t steps = editor->undoStack().undoCount();
        DSClickButton(item(page, reset.button));
        EXPECT_EQ(editor->undoStack().undoCount(), steps + 1);
        EXPECT_EQ(editor->undoStack().undoName(), reset.step);
        const auto after = states();
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            const bool same = runtime::sameBits(before[i], after[i]);
            EXPECT_TRUE(same || contains(reset, after[i].id)) << toText(after[i].id);
        }
        for (const auto& [label, number] : reset.values) {
            EXPECT_EQ(value(findParameter(std::string_view(label))->id), number) << label;
        }
        expectControlsShow(page, *editor);
        editor->undo();
        expectSame(states(), before);
    }
}

TEST_F(Resets, SetKeysOfWhatIsAnimated) {
    const GUID angle = row(ParameterId::LineAngle).identifier;
    session->setKeys(angle, {{0.0, 30.0}, {4.0, 90.0}});
    editor->setTime(1.0);
    const auto page = open(kBreakup2PageId);
    DSClickButton(item(page, IDC_BREAKUP2_RESET));
    EXPECT_EQ(session->keys(angle), (std::vector<DSKey>{{0.0, 30.0}, {1.0, 10.0}, {4.0, 90.0}}));
}

TEST_F(Resets, OfTheMainPageSetsThePresetsBackAndColoursTheChip) {
    const auto page = open(kRuvexPageId);
    DSChooseItem(item(page, IDC_PRESETS), 6);
    DSClickButton(item(page, IDC_MAIN_RESET));
    EXPECT_EQ(state(page, IDC_PRESETS).selection, 0);
    EXPECT_EQ(chip(page, IDC_TINT_CHIP)->colour(), (CDSColourChip::Colour{63, 165, 76, 255}));
    EXPECT_TRUE(state(page, IDC_TV_COLOUR).shown());
}

}  // namespace
}  // namespace ruvex::test
