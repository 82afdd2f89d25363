// The Help page and the manual.

#include <algorithm>
#include <utility>

#include "overlay/vx_t_interact.h"
#include "pages/manual.h"
#include "pages/resources/resource_ids.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

class HelpPage : public PageTest {};

TEST_F(HelpPage, SaysWhatTheEffectIs) {
    const auto page = open(kHelpPageId);
    EXPECT_EQ(state(page, IDC_COPYRIGHT).text, L"Copyright 2026 The V_Ruvex authors");
    EXPECT_EQ(state(page, IDC_MAKER).text, L"The V_Ruvex authors");
    EXPECT_EQ(state(page, IDC_ABOUT_LAST_LINE).text, L"");
    EXPECT_EQ(state(page, IDC_PRODUCT).text, L"V_Ruvex 0.1.0, for hosts of version 10");
    EXPECT_EQ(
        state(page, IDC_DESCRIPTION).text,
        L"V_Ruvex simulates faulty television reception and video winding effects. Noise, "
        L"picture breakup, roll, colour breakup and much more can be introduced.\nThe 'Master "
        L"Breakup' is an overall control, each effect has it's own 'threshold', when the "
        L"'Master Breakup' is over this threshold, the effect will start to kick in. So by "
        L"animating 'Master Breakup' (or using it's own 'Breakup Variation' parameter) the "
        L"individual V_Ruvex effects will vary over time.\n");
}

TEST_F(HelpPage, WithoutAToolTheBoxDoesNothing) {
    // A paint effect has no controls in the viewer.
    editor.reset();
    session = std::make_unique<runtime::EffectSession>(runtime::EffectSession::Setup{
        .project = {.width = 720, .height = 576}, .family = DSFAMILY_Paint});
    editor = std::make_unique<runtime::Editor>(*session);
    const auto page = open(kHelpPageId);
    ASSERT_TRUE(VWControllerContexts().empty());
    const auto before = states();
    for (const bool checked : {true, false, true}) {
        EXPECT_TRUE(DSClickButton(item(page, IDC_HIDE_OVERLAY_CONTROLS)));
        EXPECT_EQ(state(page, IDC_HIDE_OVERLAY_CONTROLS).checked, checked);
    }
    expectSame(states(), before);
    EXPECT_EQ(value(ParameterId::HideOverlayControls), 0.0) << "is not stored";
    EXPECT_EQ(editor->undoStack().undoCount(), 0u);
}

TEST_F(HelpPage, TheBoxShowsAndHidesTheControlsAndStartsClear) {
    const auto guns = open(kGunsPageId);
    auto page = open(kHelpPageId);
    ASSERT_EQ(VWControllerContexts().size(), 1u);
    const auto tool = interactiveTool(VWControllerContexts()[0].tool.get());
    const auto tick = [&] { DSClickButton(item(page, IDC_HIDE_OVERLAY_CONTROLS)); };
    tick();
    EXPECT_FALSE(tool->isEnabled());
    page.reset();
    page = open(kHelpPageId);
    EXPECT_FALSE(state(page, IDC_HIDE_OVERLAY_CONTROLS).checked);
    EXPECT_FALSE(tool->isEnabled()) << "although the box is clear";
    tick();
    EXPECT_FALSE(tool->isEnabled());
    tick();
    EXPECT_TRUE(tool->isEnabled());
}

TEST_F(HelpPage, TheBoxChangesOneBitOfTheTool) {
    const auto page = open(kHelpPageId);
    const auto tool = interactiveTool(VWControllerContexts().at(0).tool.get());
    for (const std::uint32_t others : {0u, 0xFFFFFFFEu, 0x5A5A5A5Au}) {
        tool->toolFlags = others | VxTInteract::kOverlayEnabled;
        DSClickButton(item(page, IDC_HIDE_OVERLAY_CONTROLS));
        EXPECT_EQ(tool->toolFlags, others);
        DSClickButton(item(page, IDC_HIDE_OVERLAY_CONTROLS));
        EXPECT_EQ(tool->toolFlags, others | VxTInteract::kOverlayEnabled);
    }
}

// The manual.

/// Notes the files that the shell is asked to open.
class Shell {
public:
    Shell() {
        before_ = DSUseShell([this](const std::wstring& file) {
            files.push_back(file);
            return true;
        });
    }
    ~Shell() { DSUseShell(before_); }

    std::vector<std::wstring> files;

private:
    DSShell before_;
};

TEST_F(HelpPage, TheButtonAndTheHostsHelpOpenTheManualOfTheInstallation) {
    const Shell shell;
    const auto page = open(kHelpPageId);
    DSClickButton(item(page, IDC_ONLINE_HELP));
    EXPECT_EQ(shell.files, std::vector<std::wstring>{L"/opt/ruvex/share/doc/ruvex/manual.pdf"});
    for (const GUID& id : kPageIds) {
        EXPECT_EQ(open(id)->page().Help(nullptr), S_OK);
    }
    EXPECT_EQ(shell.files.size(), 9u);
    EXPECT_EQ(std::ranges::count(shell.files, shell.files[0]), 9);
}

TEST_F(HelpPage, WithoutAShellNothingHappens) {
    const auto page = open(kHelpPageId);
    EXPECT_TRUE(DSClickButton(item(page, IDC_ONLINE_HELP)));
    EXPECT_EQ(page->page().Help(L"folder"), S_OK);
}

TEST_F(HelpPage, AFileNameThatIsNoTextOpensNothing) {
    const Shell shell;
    const auto page = open(kHelpPageId);
    const char* const file = std::exchange(moduleInstance->file, "/opt/\xFF/lib/ruvex/V_Ruvex.so");
    EXPECT_EQ(page->page().Help(nullptr), S_OK);
    moduleInstance->file = file;
    EXPECT_TRUE(shell.files.empty());
}

/// Texts of a registry: what each read gives; the last one is repeated.
class ScriptedRegistryText final : public RegistryText {
public:
    bool open() override { return exists; }
    bool read(wchar_t* buffer, std::size_t bytes) override {
        ++reads;
        const std::wstring& text = texts[std::min(reads, texts.size()) - 1];
        if (text.empty() || (text.size() + 1) * 2 > bytes) return false;
        std::ranges::copy(text, buffer);
        buffer[text.size()] = L'\0';
        return true;
    }
    void close() override { ++closed; }

    bool exists = true;
    std::vector<std::wstring> texts;
    std::size_t reads = 0;
    int closed = 0;
};

constexpr const wchar_t* kFallback = L"C:Program Files";

TEST(ProgramFiles, AreReadFromTheRegistry) {
    ScriptedRegistryText registry;
    registry.texts = {L"D:\\Programs"};
    EXPECT_EQ(programFilesFolder(registry), L"D:\\Programs");
    EXPECT_EQ(registry.reads, 1u);
    EXPECT_EQ(registry.closed, 1);
}

TEST(ProgramFiles, AreAskedForTwice) {
    ScriptedRegistryText registry;
    registry.texts = {L"", L"D:\\Programs"};
    EXPECT_EQ(programFilesFolder(registry), L"D:\\Programs");
    EXPECT_EQ(registry.reads, 2u);
}

TEST(ProgramFiles, HaveAFallbackWithoutABackslash) {
    ScriptedRegistryText none;
    none.exists = false;
    EXPECT_EQ(programFilesFolder(none), kFallback);
    EXPECT_EQ(none.closed, 0) << "a key that was not opened";
    ScriptedRegistryText empty;
    empty.texts = {L""};
    EXPECT_EQ(programFilesFolder(empty), kFallback);
    EXPECT_EQ(empty.reads, 2u);
    EXPECT_EQ(empty.closed, 1);
}

TEST(ProgramFiles, MayHave129Characters) {
    ScriptedRegistryText fits;
    fits.texts = {std::wstring(129, L'p')};
    EXPECT_EQ(programFilesFolder(fits), fits.texts[0]);
    ScriptedRegistryText tooLong;
    tooLong.texts = {std::wstring(130, L'p')};
    EXPECT_EQ(programFilesFolder(tooLong), kFallback);
    EXPECT_EQ(tooLong.reads, 2u);
}

TEST(InstalledManual, LiesBelowTheFolderOfPrograms) {
    EXPECT_EQ(installedManual(L"C:\\Program Files"),
              L"C:\\Program Files\\Osterlin\\Velmar 4.3 for DS10 "
              L"(64bit)\\Documentation\\Velmar4.3.pdf");
    EXPECT_EQ(installedManual(L"D:\\100%d %s%n"),
              L"D:\\100%d %s%n\\Osterlin\\Velmar 4.3 for DS10 "
              L"(64bit)\\Documentation\\Velmar4.3.pdf")
        << "a percent sign is no format";
}

// The texts of statics.

TEST_F(HelpPage, TextsAreWidenedByteByByteAndCut) {
    const auto page = open(kHelpPageId);
    as<VxDsPPG>(page).SetItemText(IDC_MAKER, "\xA9 \xFF\x80z");
    EXPECT_EQ(state(page, IDC_MAKER).text, L"\u00A9 \u00FF\u0080z");
    as<VxDsPPG>(page).SetItemText(IDC_MAKER, std::string(3000, 'x'));
    EXPECT_EQ(state(page, IDC_MAKER).text, std::wstring(2047, L'x'));
}

}  // namespace
}  // namespace ruvex::test
