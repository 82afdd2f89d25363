#include "sdk/controls/host_controls.h"

#include <gtest/gtest.h>
#include <vector>

#include "sdk/window/window_tree.h"
#include "tests/sdk/window_statements.h"
#include "tests/support/reference_count.h"

namespace ruvex {
namespace {

// Controls of dialog 5 in conformance.rc.
constexpr int kCaption = 2001, kSeed = 1001, kCombo = 1000, kChip = 1009, kContrast = 1002;

/// A dialog with the host's controls.
class HostControls : public ::testing::Test {
protected:
    HostControls() {
        dialog =
            CreateDialogParamW(test::conformanceModule(), MAKEINTRESOURCEW(5), nullptr, nullptr, 0);
    }
    ~HostControls() override {
        DSReleaseControls(dialog);
        DestroyWindow(dialog);
    }

    HWND at(int id) const { return GetDlgItem(dialog, id); }
    const DSWindowState& state(int id) const { return *DSGetWindowState(at(id)); }

    HWND dialog;
};

TEST_F(HostControls, ReplaceStaticsInPlace) {
    const std::vector<HWND> before = DSGetWindowState(dialog)->children;
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    EXPECT_EQ(DSGetWindowState(dialog)->children, before);
    EXPECT_EQ(state(kSeed).className, "dsnewnumberctrl");
    EXPECT_EQ(state(kSeed).text, L"Seed");
    EXPECT_EQ(state(kSeed).rect, (DSDialogRect{102, 130, 82, 12}));
    EXPECT_EQ(state(kSeed).style, WS_CHILD | WS_VISIBLE | WS_TABSTOP);
    EXPECT_EQ(state(kChip).className, "dsnewcolorchipctrl");
    EXPECT_EQ(state(kChip).text, L"");
    EXPECT_EQ(state(kCaption).className, "static");
    EXPECT_EQ(state(kCaption).text, L"Seed");
}

TEST_F(HostControls, HaveTheModelsOfTheirTitles) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const auto seed = DSNumberControlOf(at(kSeed));
    ASSERT_TRUE(seed);
    EXPECT_EQ(seed->label(), "Seed");
    EXPECT_EQ(seed->low(), 0.0);
    EXPECT_EQ(seed->high(), 10000.0);
    EXPECT_EQ(seed->decimals(), 0);
    const auto contrast = DSNumberControlOf(at(kContrast));
    ASSERT_TRUE(contrast);
    EXPECT_EQ(contrast->low(), -100.0);
    EXPECT_EQ(contrast->decimals(), 3);
    EXPECT_TRUE(DSColourChipOf(at(kChip)));
}

TEST_F(HostControls, OtherWindowsHaveNoModel) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    for (const HWND window : {at(kCaption), at(kCombo), dialog, HWND()}) {
        EXPECT_FALSE(DSNumberControlOf(window));
        EXPECT_FALSE(DSColourChipOf(window));
    }
    EXPECT_FALSE(DSColourChipOf(at(kSeed)));
    EXPECT_FALSE(DSNumberControlOf(at(kChip)));
}

TEST_F(HostControls, ThePropertyHoldsTheInterface) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    auto* const face = static_cast<IUnknown*>(GetPropW(at(kSeed), L"DSCTLIFACE"));
    ASSERT_TRUE(face);
    const auto number = ComPtr<IUnknown>(face).query<IDSNumberControl>();
    ASSERT_TRUE(number);
    const VARIANT low = DSVariantFromReal(5.0), high = DSVariantFromReal(6.0);
    EXPECT_EQ(number->SetRange(&low, &high), S_OK);
    EXPECT_EQ(DSNumberControlOf(at(kSeed))->high(), 6.0);
}

TEST_F(HostControls, ListsCanBeOpened) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    EXPECT_EQ(state(kCombo).listHeight, 12 + 12 * 8 + 2) << "for the most items";
    EXPECT_EQ(state(kCombo).rect, (DSDialogRect{102, 10, 82, 8}));
    for (int item = 0; item < 3; ++item) {
        SendMessageW(at(kCombo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"item"));
    }
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    EXPECT_EQ(state(kCombo).listHeight, 12 + 3 * 8 + 2);
    for (int item = 3; item < 50; ++item) {
        SendMessageW(at(kCombo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"item"));
    }
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    EXPECT_EQ(state(kCombo).listHeight, 12 + 12 * 8 + 2);
}

TEST_F(HostControls, AreMadeOnce) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const auto seed = DSNumberControlOf(at(kSeed));
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    EXPECT_EQ(DSNumberControlOf(at(kSeed)).get(), seed.get());
}

TEST_F(HostControls, ObserversSeeChangesOfModels) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    std::vector<HWND> changed;
    DSObserveWindows([&](HWND window, DSWindowChange) { changed.push_back(window); });
    DSNumberControlOf(at(kSeed))->show(7.0);
    DSNumberControlOf(at(kSeed))->type("8");
    DSColourChipOf(at(kChip))->SetColour(1, 2, 3, 4);
    DSObserveWindows(nullptr);
    EXPECT_EQ(changed, (std::vector<HWND>{at(kSeed), at(kSeed), at(kChip)}));
}

TEST_F(HostControls, AreReleasedWithTheirNotifications) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const auto seed = DSNumberControlOf(at(kSeed));
    const auto chip = DSColourChipOf(at(kChip));
    int notified = 0;
    seed->listen([&](DSNumberEdit) { ++notified; });
    chip->listen([&] { ++notified; });
    DSReleaseControls(dialog);
    EXPECT_EQ(GetPropW(at(kSeed), L"DSCTLIFACE"), nullptr);
    EXPECT_EQ(test::countOf(*seed), 1u);
    EXPECT_EQ(test::countOf(*chip), 1u);
    seed->step(1);
    chip->pick({1, 2, 3, 4});
    EXPECT_EQ(notified, 0);
    DSReleaseControls(dialog);
}

TEST_F(HostControls, CanBeReleasedInsideANotification) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const HWND seed = at(kSeed);
    int notified = 0;
    DSNumberControlOf(seed)->listen([&](DSNumberEdit) {
        DSReleaseControls(dialog);
        DestroyWindow(dialog);
        ++notified;
    });
    CDSNumberControl* const control = DSNumberControlOf(seed).get();
    control->step(1);
    EXPECT_EQ(notified, 1);
    EXPECT_EQ(DSGetWindowState(seed), nullptr);
}

TEST_F(HostControls, CanBeReleasedAfterTheirDialogIsDestroyed) {
    ASSERT_EQ(DSMakeControls(dialog), S_OK);
    const auto seed = DSNumberControlOf(at(kSeed));
    DestroyWindow(dialog);
    seed->show(1.0);
    DSReleaseControls(dialog);
    EXPECT_EQ(test::countOf(*seed), 1u);
}

TEST_F(HostControls, NeedADialog) {
    EXPECT_EQ(DSMakeControls(nullptr), S_OK) << "nothing to do";
    DSReleaseControls(nullptr);
}

TEST_F(HostControls, HaveToolTips) {
    DSSetToolTip(dialog, at(kCombo), L"The kind of television");
    EXPECT_EQ(state(kCombo).tip, L"The kind of television");
    DSSetToolTip(dialog, at(kCombo), nullptr);
    EXPECT_EQ(state(kCombo).tip, L"");
    DSSetToolTip(dialog, nullptr, L"nowhere");
}

}  // namespace
}  // namespace ruvex
