// Running out of memory at each allocation of a dialog and of its controls: the functions of the
// system fail, and nothing is left behind.

#include <functional>
#include <gtest/gtest.h>

#include "sdk/controls/host_controls.h"
#include "sdk/window/window_tree.h"
#include "tests/sdk/window_statements.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

constexpr std::uint16_t kOuterDialog = 1, kControlDialog = 5;
constexpr int kCombo = 1000, kCaption = 2001, kSeed = 1001;

HWND makeDialog(std::uint16_t number, HWND parent) {
    return CreateDialogParamW(conformanceModule(), MAKEINTRESOURCEW(number), parent, nullptr, 0);
}

/// Runs `attempt` with its first allocation failing, then its second, and so on, until there are no
/// more. `attempt` returns whether it succeeded. Gives the number of allocations.
std::size_t failEachAllocation(const std::function<bool()>& attempt,
                               const std::function<void()>& check) {
    for (std::size_t failing = 1;; ++failing) {
        bool failed = false, succeeded = false;
        {
            const FailingNew memory(failing);
            succeeded = attempt();
            failed = memory.failed();
        }
        EXPECT_NE(succeeded, failed) << "allocation " << failing;
        if (!failed) return failing - 1;
        check();
    }
}

class WindowMemory : public testing::Test {
protected:
    WindowMemory() : outer(makeDialog(kOuterDialog, nullptr)) {}
    ~WindowMemory() override {
        DSReleaseControls(dialog);
        DestroyWindow(outer);
    }

    HWND at(int id) const { return GetDlgItem(dialog, id); }
    const DSWindowState& state(int id) const { return *DSGetWindowState(at(id)); }

    HWND outer;
    HWND dialog = nullptr;
};

TEST_F(WindowMemory, RunsOutAtEachAllocationOfADialog) {
    const auto create = [&] { return (dialog = makeDialog(kControlDialog, outer)) != nullptr; };
    const auto check = [&] { EXPECT_EQ(GetWindow(outer, GW_CHILD), nullptr); };
    EXPECT_GE(failEachAllocation(create, check), 6u) << "a dialog and five controls";
    EXPECT_EQ(GetWindow(outer, GW_CHILD), dialog);
}

TEST_F(WindowMemory, RunsOutAtEachAllocationOfTheControls) {
    HRESULT status = S_OK;
    const auto make = [&] {
        dialog = makeDialog(kControlDialog, outer);
        if (!dialog) return false;
        status = DSMakeControls(dialog);
        return status == S_OK;
    };
    const auto check = [&] {
        if (dialog) {
            EXPECT_EQ(status, E_OUTOFMEMORY);
            EXPECT_FALSE(GetPropW(at(kSeed), kDSControlInterface));
        }
        DestroyWindow(dialog);
    };
    EXPECT_GE(failEachAllocation(make, check), 9u) << "a dialog, five controls, three models";
    EXPECT_TRUE(DSNumberControlOf(at(kSeed)));
}

TEST_F(WindowMemory, FailedMessagesChangeNothing) {
    dialog = makeDialog(kControlDialog, outer);
    const std::wstring text = L"a text that is too long for a string without an allocation";
    const auto pointer = reinterpret_cast<LPARAM>(text.c_str());
    constexpr LRESULT kNoSpace = -2;

    LRESULT added = 0;
    const auto add = [&] {
        added = SendMessageW(at(kCombo), CB_ADDSTRING, 0, pointer);
        return added == 0;
    };
    const auto checkItems = [&] {
        EXPECT_EQ(added, kNoSpace);
        EXPECT_TRUE(state(kCombo).items.empty());
    };
    EXPECT_EQ(failEachAllocation(add, checkItems), 2u);

    const auto set = [&] { return SendMessageW(at(kCaption), WM_SETTEXT, 0, pointer) != 0; };
    EXPECT_EQ(failEachAllocation(set, [&] { EXPECT_EQ(state(kCaption).text, L"Seed"); }), 1u);

    const auto attach = [&] { return SetPropW(at(kCaption), text.c_str(), outer) != FALSE; };
    const auto checkProperties = [&] { EXPECT_TRUE(state(kCaption).properties.empty()); };
    EXPECT_EQ(failEachAllocation(attach, checkProperties), 2u);
}

}  // namespace
}  // namespace ruvex::test
