// Pages in memory that runs out: a status code, nothing left behind.

#include "host/module/entry_points.h"
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

/// Opens a page, which may fail at any point, and closes it.
bool openAndClose(const GUID& id, IUnknown* object, std::size_t failing) {
    ComPtr<IPropertyPage> page;
    EXPECT_EQ(
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IPropertyPage, page.putVoid()),
        S_OK);
    bool failed = false;
    {
        const FailingNew memory(failing);
        HRESULT status = page->SetObjects(1, &object);
        if (SUCCEEDED(status)) status = page->Activate(nullptr, nullptr, FALSE);
        if (SUCCEEDED(status)) status = page->Show(SW_SHOW);
        failed = memory.failed();
        EXPECT_TRUE(failed || status == S_OK);
    }
    page->Deactivate();
    page->SetObjects(0, nullptr);
    return failed;
}

TEST_F(PageMemory, RunsOutAtEachAllocationOfAnActivation) {
    const auto before = states();
    for (const GUID& id : kPageIds) {
        std::size_t failing = 1;
        while (openAndClose(id, &session->properties(), failing)) ++failing;
        EXPECT_GT(failing, 10u);
    }
    expectSame(states(), before);
    // Everything works afterwards.
    const auto page = open(kPageIds[0]);
    expectControlsShow(page, *editor);
}

}  // namespace
}  // namespace ruvex::test
