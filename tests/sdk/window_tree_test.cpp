#include "sdk/window/window_tree.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/sdk/window_statements.h"

namespace ruvex {
namespace {

// Controls of the page in conformance.rc.
constexpr int kLabel = 100, kPush = 101, kCheck = 102, kGroup = 103, kList = 104, kTyped = 105,
              kDisabled = 106, kHidden = 107;

/// The commands that the page's dialog has received: identifier and code.
std::vector<std::pair<int, int>> pageCommands;
/// What else the dialog does with a command.
std::function<void(HWND control)> onPageCommand;

INT_PTR recordCommand(HWND, UINT message, WPARAM wide, LPARAM extra) {
    if (message != WM_COMMAND) return FALSE;
    pageCommands.emplace_back(LOWORD(wide), HIWORD(wide));
    if (onPageCommand) onPageCommand(reinterpret_cast<HWND>(extra));
    return TRUE;
}

HWND createPage(DLGPROC* procedure, HWND parent = nullptr) {
    return CreateDialogParamW(test::conformanceModule(), MAKEINTRESOURCEW(2), parent, procedure, 0);
}

/// A page that is shown, and all changes of windows.
class WindowTree : public ::testing::Test {
protected:
    using Change = std::pair<HWND, DSWindowChange>;

    WindowTree() {
        pageCommands.clear();
        page = createPage(recordCommand);
        ShowWindow(page, SW_SHOW);
        for (const wchar_t* item : {L"one", L"two", L"three"}) {
            SendMessageW(at(kList), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        }
        previous = DSObserveWindows(
            [this](HWND window, DSWindowChange change) { changes.emplace_back(window, change); });
    }
    ~WindowTree() override {
        DSObserveWindows(previous);
        onPageCommand = nullptr;
        DestroyWindow(page);
    }

    HWND at(int id) const { return GetDlgItem(page, id); }
    const DSWindowState& state(int id) const { return *DSGetWindowState(at(id)); }

    HWND page = nullptr;
    DSWindowObserver previous;
    std::vector<Change> changes;
};

TEST_F(WindowTree, ADialogIsAsItsTemplate) {
    const DSWindowState& dialog = *DSGetWindowState(page);
    EXPECT_EQ(dialog.className, "#32770");
    EXPECT_EQ(dialog.parent, nullptr);
    EXPECT_EQ(dialog.text, L"Page");
    EXPECT_EQ(dialog.rect, (DSDialogRect{0, 0, 190, 160}));
    EXPECT_EQ(dialog.children.size(), 9u);
    EXPECT_EQ(state(kLabel).className, "static");
    EXPECT_EQ(state(kPush).className, "button");
    EXPECT_EQ(state(kList).className, "combobox");
    EXPECT_EQ(state(kPush).parent, page);
    EXPECT_EQ(state(kPush).rect, (DSDialogRect{7, 10, 44, 10}));
    EXPECT_EQ(state(kPush).style, WS_CHILD | WS_VISIBLE | WS_TABSTOP);
    EXPECT_EQ(state(kList).listHeight, 80);
    EXPECT_FALSE(state(kDisabled).enabled());
    EXPECT_FALSE(state(kHidden).shown());
}

TEST_F(WindowTree, AStaticWithAPictureKeepsItsNumber) {
    DestroyWindow(page);
    page = CreateDialogParamW(test::conformanceModule(), MAKEINTRESOURCEW(3), nullptr,
                              recordCommand, 0);
    EXPECT_EQ(state(kLabel).bitmap, 103);
    EXPECT_EQ(state(kLabel).text, L"");
}

TEST_F(WindowTree, ATemplateWithAnotherClassMakesNoDialog) {
    EXPECT_EQ(CreateDialogParamW(test::conformanceModule(), MAKEINTRESOURCEW(4), nullptr,
                                 recordCommand, 0),
              nullptr);
    EXPECT_TRUE(changes.empty());
}

TEST_F(WindowTree, ADialogNeedsAModuleAndALivingParent) {
    EXPECT_EQ(CreateDialogParamW(nullptr, MAKEINTRESOURCEW(2), nullptr, recordCommand, 0), nullptr);
    EXPECT_EQ(CreateDialogParamW(test::conformanceModule(), L"name", nullptr, recordCommand, 0),
              nullptr);
    const HWND gone = page;
    DestroyWindow(page);
    EXPECT_EQ(createPage(recordCommand, gone), nullptr);
}

TEST_F(WindowTree, WorksWithoutAProcedure) {
    const HWND silent = createPage(nullptr);
    ShowWindow(silent, SW_SHOW);
    EXPECT_TRUE(DSClickButton(GetDlgItem(silent, kPush)));
    DestroyWindow(silent);
}

TEST_F(WindowTree, AWindowBelongsToItsThread) {
    std::thread([this] {
        EXPECT_EQ(DSGetWindowState(page), nullptr);
        EXPECT_FALSE(DestroyWindow(page));
        const HWND own = createPage(nullptr);
        EXPECT_NE(own, page);
        EXPECT_TRUE(DestroyWindow(own));
    }).join();
    EXPECT_TRUE(changes.empty()) << "observers are a thread's own";
}

TEST_F(WindowTree, AnIndexOutOfRangeEndsTheSelection) {
    const HWND list = at(kList);
    SendMessageW(list, CB_SETCURSEL, 1, 0);
    EXPECT_EQ(SendMessageW(list, CB_SETCURSEL, 3, 0), CB_ERR);
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), -1);
}

TEST_F(WindowTree, ReportsChangesAndNothingElse) {
    ShowWindow(at(kPush), SW_SHOW);
    EnableWindow(at(kPush), TRUE);
    SendMessageW(at(kLabel), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Label"));
    SendMessageW(at(kList), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    SendMessageW(at(kCheck), BM_SETCHECK, BST_UNCHECKED, 0);
    EXPECT_TRUE(changes.empty()) << "all is as it was";

    ShowWindow(at(kPush), SW_HIDE);
    EnableWindow(at(kCheck), FALSE);
    SendMessageW(at(kLabel), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"New"));
    SendMessageW(at(kList), CB_RESETCONTENT, 0, 0);
    SetWindowPos(at(kGroup), nullptr, 1, 2, 3, 4, SWP_NOZORDER);
    DSTouchWindow(at(kTyped));
    using enum DSWindowChange;
    EXPECT_EQ(changes, (std::vector<Change>{{at(kPush), Changed},
                                            {at(kCheck), Changed},
                                            {at(kLabel), Changed},
                                            {at(kList), Changed},
                                            {at(kGroup), Changed},
                                            {at(kTyped), Changed}}));
}

TEST_F(WindowTree, ReportsCreationFromTheDialogAndDestructionToIt) {
    const HWND other = createPage(recordCommand);
    ASSERT_EQ(changes.size(), 10u);
    EXPECT_EQ(changes.front(), Change(other, DSWindowChange::Created));
    changes.clear();
    DestroyWindow(other);
    ASSERT_EQ(changes.size(), 10u);
    EXPECT_EQ(changes.back(), Change(other, DSWindowChange::Destroyed));
    EXPECT_EQ(DSGetWindowState(other), nullptr);
}

TEST_F(WindowTree, ClicksNotifyTheDialog) {
    EXPECT_TRUE(DSClickButton(at(kPush)));
    EXPECT_TRUE(DSClickButton(at(kCheck)));
    EXPECT_TRUE(state(kCheck).checked);
    EXPECT_FALSE(state(kPush).checked);
    EXPECT_TRUE(DSClickButton(at(kCheck)));
    EXPECT_FALSE(state(kCheck).checked);
    const std::pair<int, int> push(kPush, BN_CLICKED), check(kCheck, BN_CLICKED);
    EXPECT_EQ(pageCommands, (std::vector{push, check, check}));
}

TEST_F(WindowTree, OnlyButtonsInReachCanBeClicked) {
    EXPECT_FALSE(DSClickButton(nullptr));
    EXPECT_FALSE(DSClickButton(at(kGroup)));
    EXPECT_FALSE(DSClickButton(at(kLabel)));
    EXPECT_FALSE(DSClickButton(at(kDisabled)));
    EnableWindow(page, FALSE);
    EXPECT_FALSE(DSClickButton(at(kPush)));
    EnableWindow(page, TRUE);
    ShowWindow(page, SW_HIDE);
    EXPECT_FALSE(DSClickButton(at(kPush)));
    EXPECT_TRUE(pageCommands.empty());
}

TEST_F(WindowTree, ChoosingNotifiesAlsoForTheSameItem) {
    EXPECT_TRUE(DSChooseItem(at(kList), 1));
    EXPECT_TRUE(DSChooseItem(at(kList), 1));
    EXPECT_EQ(state(kList).selection, 1);
    const std::pair<int, int> chosen(kList, CBN_SELCHANGE);
    EXPECT_EQ(pageCommands, (std::vector{chosen, chosen}));
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_FALSE(DSChooseItem(at(kList), 3));
    EXPECT_FALSE(DSChooseItem(at(kList), -1));
    EXPECT_FALSE(DSChooseItem(at(kTyped), 0));
    EXPECT_FALSE(DSChooseItem(at(kPush), 0));
    EXPECT_EQ(pageCommands.size(), 2u);
}

TEST_F(WindowTree, TabLeadsThroughTheEnabledTabStops) {
    EXPECT_EQ(DSNextTabStop(page, nullptr), at(kPush));
    EXPECT_EQ(DSNextTabStop(page, at(kPush)), at(kCheck));
    EXPECT_EQ(DSNextTabStop(page, at(kCheck)), at(kList));
    EXPECT_EQ(DSNextTabStop(page, at(kTyped)), at(kPush)) << "past the disabled and hidden ones";
    EXPECT_EQ(DSNextTabStop(page, nullptr, true), at(kTyped));
    EXPECT_EQ(DSNextTabStop(page, at(kPush), true), at(kTyped));
    EXPECT_EQ(DSNextTabStop(page, at(kGroup)), at(kList)) << "from a control that is none";
    ShowWindow(at(kCheck), SW_HIDE);
    EXPECT_EQ(DSNextTabStop(page, at(kPush)), at(kList));
    EXPECT_EQ(DSNextTabStop(at(kPush), nullptr), nullptr);
    EXPECT_EQ(DSNextTabStop(nullptr, nullptr), nullptr);
    for (const int id : {kPush, kCheck, kTyped}) EnableWindow(at(id), FALSE);
    EXPECT_EQ(DSNextTabStop(page, at(kList)), at(kList)) << "the only one";
    EnableWindow(at(kList), FALSE);
    EXPECT_EQ(DSNextTabStop(page, nullptr), nullptr);
}

TEST_F(WindowTree, TheDialogMayDestroyItselfAtACommand) {
    onPageCommand = [this](HWND) { DestroyWindow(page); };
    const HWND check = at(kCheck);
    EXPECT_TRUE(DSClickButton(check));
    EXPECT_EQ(DSGetWindowState(check), nullptr);
    EXPECT_EQ(pageCommands.size(), 1u);
}

TEST_F(WindowTree, AnObserverMayDestroyTheWindow) {
    const HWND list = at(kList), check = at(kCheck), label = at(kLabel);
    DSObserveWindows([](HWND window, DSWindowChange change) {
        if (change == DSWindowChange::Changed) DestroyWindow(window);
    });
    DSChooseItem(list, 0);
    DSClickButton(check);
    SendMessageW(label, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"x"));
    EXPECT_TRUE(pageCommands.empty()) << "there is no control to notify about";
    for (const HWND window : {list, check, label}) EXPECT_FALSE(DSGetWindowState(window));
}

TEST_F(WindowTree, AnObserverMayDestroyADialogThatIsCreated) {
    DSObserveWindows([](HWND window, DSWindowChange change) {
        if (change == DSWindowChange::Created) DestroyWindow(window);
    });
    EXPECT_EQ(createPage(recordCommand), nullptr);
}

TEST_F(WindowTree, AnObserverMayDestroyTheParentDuringItsDestruction) {
    int destroyed = 0;
    DSObserveWindows([&](HWND, DSWindowChange) {
        ++destroyed;
        DestroyWindow(page);
    });
    EXPECT_TRUE(DestroyWindow(page));
    EXPECT_EQ(destroyed, 10) << "each once";
}

TEST_F(WindowTree, AnObserverMayReplaceItself) {
    int calls = 0;
    DSObserveWindows([&calls](HWND, DSWindowChange) {
        DSObserveWindows(nullptr);
        ++calls;
    });
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    EXPECT_EQ(calls, 1);
}

INT_PTR destroyAtOnce(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) DestroyWindow(dialog);
    return TRUE;
}

TEST_F(WindowTree, ADialogMayDestroyItselfWhileItIsInitialised) {
    EXPECT_EQ(createPage(destroyAtOnce), nullptr);
}

TEST_F(WindowTree, DialogsCanBeNested) {
    const HWND inner = createPage(recordCommand, page);
    EXPECT_EQ(DSGetWindowState(page)->children.back(), inner);
    ShowWindow(inner, SW_SHOW);
    EXPECT_TRUE(DSClickButton(GetDlgItem(inner, kPush)));
    ShowWindow(page, SW_HIDE);
    EXPECT_FALSE(DSClickButton(GetDlgItem(inner, kPush)));
    DestroyWindow(page);
    EXPECT_EQ(DSGetWindowState(inner), nullptr);
}

TEST_F(WindowTree, TheHostsControlsChangeClassAndTip) {
    DSSetWindowClass(at(kLabel), "dsnewnumberctrl");
    DSSetWindowTip(at(kLabel), L"A tip");
    EXPECT_EQ(state(kLabel).className, "dsnewnumberctrl");
    EXPECT_EQ(state(kLabel).tip, L"A tip");
    EXPECT_EQ(changes.size(), 2u);
    DSSetWindowTip(at(kLabel), nullptr);
    EXPECT_EQ(state(kLabel).tip, L"");
    DSSetWindowClass(nullptr, "static");
    DSSetWindowTip(nullptr, L"x");
    DSTouchWindow(nullptr);
    EXPECT_FALSE(InvalidateRect(nullptr, nullptr, FALSE));
}

TEST_F(WindowTree, ADropDownListIsResizedWhenItIsOpened) {
    SetWindowPos(at(kList), nullptr, 1, 2, 90, 120, SWP_NOZORDER | SWP_NOMOVE);
    EXPECT_EQ(state(kList).rect, (DSDialogRect{102, 10, 90, 80}));
    EXPECT_EQ(state(kList).listHeight, 120);
}

TEST(Shell, PassesFilesToTheHost) {
    const auto open = [](const wchar_t* file) {
        return reinterpret_cast<std::uintptr_t>(
            ShellExecuteW(nullptr, L"open", file, nullptr, nullptr, SW_SHOW));
    };
    EXPECT_LE(open(L"manual.pdf"), 32u) << "no host";
    std::vector<std::wstring> opened;
    DSShell previous = DSUseShell([&](const std::wstring& file) {
        opened.push_back(file);
        return file == L"manual.pdf";
    });
    EXPECT_GT(open(L"manual.pdf"), 32u);
    EXPECT_LE(open(L"other.pdf"), 32u);
    EXPECT_LE(open(nullptr), 32u);
    EXPECT_EQ(opened, (std::vector<std::wstring>{L"manual.pdf", L"other.pdf"}));
    EXPECT_TRUE(DSUseShell(previous));
}

TEST(FormatText, IsCutAtTheSystemsLimit) {
    wchar_t text[1025];
    text[1024] = L'#';
    const std::wstring longText(3000, L'x');
    EXPECT_EQ(wsprintfW(text, L"%s", longText.c_str()), 1023);
    EXPECT_EQ(text[1023], L'\0');
    EXPECT_EQ(wsprintfW(text, L"%99999d|%.99999d", 1, 2), 1023);
    EXPECT_EQ(text[1024], L'#');
}

TEST(FormatText, SurvivesOddFormats) {
    wchar_t text[1024];
    EXPECT_EQ(wsprintfW(text, L"%s", static_cast<const wchar_t*>(nullptr)), 6);
    EXPECT_STREQ(text, L"(null)");
    EXPECT_EQ(wsprintfW(text, L"50%"), 2);
    EXPECT_STREQ(text, L"50");
    EXPECT_EQ(wsprintfW(text, L"%#x %q", 255u), 6);
    EXPECT_STREQ(text, L"0xff q");
}

}  // namespace
}  // namespace ruvex
