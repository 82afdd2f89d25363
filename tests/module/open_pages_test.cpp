// The property pages of the built module, in the stand-in host.

#include <gtest/gtest.h>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "runtime/editor.h"
#include "sdk/controls/host_controls.h"
#include "sdk/window/window_tree.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

runtime::EffectSession makeSession() {
    return runtime::EffectSession(
        {.module = builtModule(), .project = {.width = 64, .height = 48}});
}

TEST(OpenPages, KeepTheModuleLoaded) {
    {
        auto session = makeSession();
        runtime::Editor editor(session);
        const auto page = editor.open(kGunsPageId);
        EXPECT_FALSE(builtModule()->canUnload());
        EXPECT_THROW(builtModule()->unload(), std::exception);
        EXPECT_TRUE(DSNumberControlOf(GetDlgItem(page->window(), IDC_ALIGN_RED_X)));
    }
    EXPECT_TRUE(builtModule()->canUnload());
}

TEST(OpenPages, MayOutliveTheEffectTheyInspect) {
    ComPtr<IPropertyPage> page;
    {
        auto session = makeSession();
        ASSERT_EQ(
            session.makeObject(kHelpPageId)->QueryInterface(IID_IPropertyPage, page.putVoid()),
            S_OK);
        IUnknown* object = &session.effect();
        ASSERT_EQ(page->SetObjects(1, &object), S_OK);
        ASSERT_EQ(page->Activate(nullptr, nullptr, FALSE), S_OK);
    }
    EXPECT_EQ(page->Show(SW_SHOW), S_OK);
    page->Deactivate();
    page->SetObjects(0, nullptr);
    EXPECT_FALSE(builtModule()->canUnload()) << "the page keeps the effect until it is destroyed";
    page.reset();
    EXPECT_TRUE(builtModule()->canUnload());
}

TEST(OpenPages, AllOfThemOpenEditAndUndo) {
    auto session = makeSession();
    runtime::Editor editor(session);
    std::vector<std::unique_ptr<runtime::OpenPage>> pages;
    for (const GUID& id : editor.pages()) {
        pages.push_back(editor.open(id));
        pages.back()->show();
    }
    ASSERT_EQ(pages.size(), 8u);
    const HWND presets = GetDlgItem(pages[0]->window(), IDC_PRESETS);
    EXPECT_TRUE(DSChooseItem(presets, 2));
    const auto softness = DSNumberControlOf(GetDlgItem(pages[2]->window(), IDC_NUM_GHOSTS));
    EXPECT_EQ(softness->value(), 6.0);
    editor.undo();
    EXPECT_EQ(softness->value(), 2.0);
}

}  // namespace
}  // namespace ruvex::test
