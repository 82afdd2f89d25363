#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "sdk/window/window_tree.h"
#include "tests/sdk/window_statements.h"

namespace ruvex {
namespace {

std::mt19937 walkRandom;
/// Handles of windows that live, that are destroyed, and null.
std::vector<HWND> walkHandles;

std::size_t upTo(std::size_t end) {
    return walkRandom() % end;
}
HWND anyWindow() {
    return walkHandles[upTo(walkHandles.size())];
}

/// One command in twenty destroys a window at random: the dialog, the control or another one.
INT_PTR destroyAtRandom(HWND, UINT, WPARAM, LPARAM) {
    if (upTo(20) == 0) DestroyWindow(anyWindow());
    return TRUE;
}

void createAnother() {
    constexpr std::uint16_t kDialogs[] = {1, 2, 3, 5};
    const HWND dialog =
        CreateDialogParamW(test::conformanceModule(), MAKEINTRESOURCEW(kDialogs[upTo(4)]),
                           upTo(2) == 0 ? anyWindow() : nullptr, destroyAtRandom, 0);
    ShowWindow(dialog, SW_SHOW);
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        walkHandles.push_back(child);
    }
    walkHandles.push_back(dialog);
}

void changeAnother(HWND window) {
    wchar_t text[8];
    switch (upTo(14)) {
        case 0:
            ShowWindow(window, upTo(4) == 0 ? SW_HIDE : SW_SHOW);
            break;
        case 1:
            EnableWindow(window, upTo(4) != 0);
            break;
        case 2:
            SetWindowPos(window, anyWindow(), 1, 2, 3, 4, 0);
            break;
        case 3:
            GetWindowTextW(window, text, 8);
            break;
        case 4:
            SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"text"));
            break;
        case 5:
        case 6:
            SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"item"));
            break;
        case 7:
            SendMessageW(window, CB_SETCURSEL, upTo(8), 0);
            break;
        case 8:
            SendMessageW(window, upTo(10) == 0 ? CB_RESETCONTENT : BM_SETCHECK, 1, 0);
            break;
        case 9:
            DSChooseItem(window, static_cast<int>(upTo(4)));
            break;
        case 10:
            DSClickButton(window);
            break;
        case 11:
            DSNextTabStop(window, anyWindow(), upTo(2) == 0);
            break;
        case 12:
            GetDlgItem(window, 100);
            SetPropW(window, L"Name", window);
            break;
        default:
            if (upTo(30) == 0) DestroyWindow(window);
    }
}

/// Whether parents and children agree, and selections have items.
bool isConsistent(HWND window) {
    const DSWindowState* const state = DSGetWindowState(window);
    if (!state) return true;
    const int items = static_cast<int>(state->items.size());
    if (state->selection < -1 || state->selection >= items) return false;
    for (const HWND child : state->children) {
        const DSWindowState* const found = DSGetWindowState(child);
        if (!found || found->parent != window) return false;
    }
    if (!state->parent) return true;
    const DSWindowState* const parent = DSGetWindowState(state->parent);
    return parent && std::ranges::count(parent->children, window) == 1;
}

/// What observers have been told: a window is created once, and destroyed once after that.
class Told {
public:
    void take(HWND window, DSWindowChange change) {
        using enum DSWindowChange;
        const auto known = std::ranges::find(live_, window);
        if (change == Created) {
            EXPECT_EQ(known, live_.end());
            live_.push_back(window);
        } else if (change == Destroyed) {
            if (known != live_.end()) live_.erase(known);
            EXPECT_EQ(DSGetWindowState(window), nullptr);
        } else {
            EXPECT_NE(DSGetWindowState(window), nullptr);
        }
    }
    const std::vector<HWND>& live() const { return live_; }

private:
    std::vector<HWND> live_;
};

TEST(WindowWalk, TheTreeStaysConsistentWhateverIsDestroyedInACall) {
    walkRandom.seed(11);
    walkHandles = {nullptr};
    Told told;
    std::size_t created = 0;
    DSObserveWindows([&](HWND window, DSWindowChange change) {
        told.take(window, change);
        if (change == DSWindowChange::Created) ++created;
        if (upTo(300) == 0) DestroyWindow(anyWindow());
    });
    for (int step = 0; step < 20000; ++step) {
        if (upTo(40) == 0) createAnother();
        changeAnother(anyWindow());
        if (walkHandles.size() > 200) {
            DestroyWindow(walkHandles[1]);
            walkHandles.erase(walkHandles.begin() + 1);
        }
        for (const HWND window : told.live()) ASSERT_TRUE(isConsistent(window)) << step;
    }
    EXPECT_GT(created, 500u);
    while (!told.live().empty()) DestroyWindow(told.live().back());
    DSObserveWindows(nullptr);
}

}  // namespace
}  // namespace ruvex
