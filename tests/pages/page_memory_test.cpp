// Pages in memory that runs out: a status code, nothing left behind.

#include "host/module/entry_points.h"
#include "pages/resources/resource_ids.h"
#include "tests/pages/page_test.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

class PageMemory : public PageTest {};

TEST_F(PageMemory, RunsOutAtEachAllocationOfAPage) {
    for (const GUID& id : kPageIds) {
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(DllGetClassObject(id, IID_IClassFactory, factory.putVoid()), S_OK);
        for (std::size_t failing = 1;; ++failing) {
            const std::int32_t before = objectCount;
            ComPtr<IPropertyPage> page;
            HRESULT status = S_OK;
            bool failed = false;
            {
                const FailingNew memory(failing);
                status = factory->CreateInstance(nullptr, IID_IPropertyPage, page.putVoid());
                failed = memory.failed();
            }
            EXPECT_EQ(status, failed ? E_OUTOFMEMORY : S_OK) << failing;
            EXPECT_EQ(static_cast<bool>(page), !failed);
            EXPECT_EQ(objectCount, before + !failed);
            if (!failed) break;
        }
    }
}

/// The items of all lists of a page.
std::size_t itemsOf(const ComPtr<IPropertyPage>& page) {
    HWND dialog = nullptr;
    page.query<IDsPropertyPage>()->GetPageWindow(&dialog);
    std::size_t count = 0;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        count += DSGetWindowState(child)->items.size();
    }
    return count;
}

/// Opens a page, which may fail at any point, and closes it. A page that opens has all `items`.
bool openAndClose(const GUID& id, IUnknown* object, std::size_t items, std::size_t failing) {
    ComPtr<IPropertyPage> page;
    EXPECT_EQ(
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage, page.putVoid()),
        S_OK);
    bool failed = false;
    bool opened = false;
    {
        const FailingNew memory(failing);
        HRESULT status = page->SetObjects(1, &object);
        if (SUCCEEDED(status)) status = page->Activate(nullptr, nullptr, FALSE);
        if (SUCCEEDED(status)) status = page->Show(SW_SHOW);
        failed = memory.failed();
        EXPECT_TRUE(failed || status == S_OK);
        opened = SUCCEEDED(status);
    }
    if (opened) {
        EXPECT_EQ(itemsOf(page), items) << failing;
    }
    page->Deactivate();
    page->SetObjects(0, nullptr);
    return failed;
}

TEST_F(PageMemory, RunsOutAtEachAllocationOfAnActivation) {
    const auto before = states();
    for (const GUID& id : kPageIds) {
        const std::size_t items = itemsOf(&open(id)->page());
        std::size_t failing = 1;
        while (openAndClose(id, &session->properties(), items, failing)) ++failing;
        EXPECT_GT(failing, 10u);
    }
    expectSame(states(), before);
    // Everything works afterwards.
    const auto page = open(kPageIds[0]);
    expectControlsShow(page, *editor);
}

/// Lets an operation of the user run out of memory at each of its allocations, and undoes it.
template <class Operation>
void runOut(runtime::Editor& editor, Operation operation) {
    for (std::size_t failing = 1;; ++failing) {
        SCOPED_TRACE(failing);
        bool failed = false;
        {
            const FailingNew memory(failing);
            EXPECT_NO_THROW(operation());
            failed = memory.failed();
        }
        ASSERT_FALSE(editor.undoStack().isRecording()) << "a bracket was left open";
        while (editor.undoStack().undoCount() > 0) editor.undo();
        if (!failed) return;
        ASSERT_LT(failing, 100000u);
    }
}

TEST_F(PageMemory, RunsOutAtEachAllocationOfACommand) {
    const auto before = states();
    const auto main = open(kRuvexPageId);
    const auto effects = open(kEffectsPageId);
    const auto help = open(kHelpPageId);
    runOut(*editor, [&] { DSChooseItem(item(main, IDC_PRESETS), 7); });
    runOut(*editor, [&] { DSChooseItem(item(main, IDC_TV_TYPE), 2); });
    runOut(*editor, [&] { DSClickButton(item(main, IDC_MAIN_RESET)); });
    runOut(*editor, [&] { DSClickButton(item(effects, IDC_FISH_EYE)); });
    runOut(*editor, [&] { DSClickButton(item(help, IDC_ONLINE_HELP)); });
    runOut(*editor, [&] { EXPECT_EQ(help->page().Help(nullptr), S_OK); });
    expectSame(states(), before);
}

TEST_F(PageMemory, AnActivePageHearsItsControls) {
    for (std::size_t failing = 1;; ++failing) {
        SCOPED_TRACE(failing);
        set(ParameterId::Blur, 5.0);
        ComPtr<IPropertyPage> page;
        ASSERT_EQ(CoCreateInstance(kEffectsPageId, nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage,
                                   page.putVoid()),
                  S_OK);
        IUnknown* object = &session->properties();
        bool failed = false;
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = page->SetObjects(1, &object);
            if (SUCCEEDED(status)) status = page->Activate(nullptr, nullptr, FALSE);
            failed = memory.failed();
        }
        if (SUCCEEDED(status)) {
            page->Show(SW_SHOW);
            HWND window = nullptr;
            page.query<IDsPropertyPage>()->GetPageWindow(&window);
            EXPECT_TRUE(DSClickButton(GetDlgItem(window, IDC_EFFECTS_RESET)));
            EXPECT_EQ(value(ParameterId::Blur), 0.0);
        }
        page->Deactivate();
        page->SetObjects(0, nullptr);
        if (!failed) return;
    }
}

}  // namespace
}  // namespace ruvex::test
