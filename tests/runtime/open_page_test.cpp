#include "runtime/open_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/runtime/scripted_page.h"

namespace ruvex::runtime::test {
namespace {

using ::testing::ElementsAre;

class OpenPages : public EditorTest {
protected:
    /// Opens a page and gives the object behind it.
    ComPtr<ScriptedPage> openPage(std::unique_ptr<OpenPage>& page) {
        page = editor.open(kFirstPageId);
        return ScriptedPage::last;
    }
};

TEST_F(OpenPages, LiveFromTheirSiteToTheirRelease) {
    auto page = editor.open(kFirstPageId);
    const ComPtr<ScriptedPage> scripted = ScriptedPage::last;
    page->show();
    page->hide();
    EXPECT_EQ(page->title(), L"Scripted");
    EXPECT_EQ(page->window(), reinterpret_cast<HWND>(scripted.get()));
    EXPECT_EQ(&page->page(), static_cast<IPropertyPage*>(scripted.get()));
    EXPECT_TRUE(editor.edits(*scripted->object));
    page.reset();
    EXPECT_THAT(scripted->calls, ElementsAre("SetPageSite", "SetObjects 1", "Activate", "Show",
                                             "Hide", "GetPageInfo", "GetPageWindow", "Deactivate",
                                             "SetObjects 0", "SetPageSite null"));
    EXPECT_TRUE(scripted->alwaysInProject);
}

TEST_F(OpenPages, HearOfTheTime) {
    std::unique_ptr<OpenPage> first, second;
    const auto a = openPage(first);
    const auto b = openPage(second);
    editor.setTime(1.5);
    EXPECT_EQ(a->time, 1.5);
    EXPECT_EQ(b->time, 1.5);
    double seconds = 0.0;
    EXPECT_EQ(a->site->GetTime(&seconds), S_OK);
    EXPECT_EQ(seconds, 1.5);
    EXPECT_EQ(a->site->GetTime(nullptr), E_POINTER);
    EXPECT_TRUE(a->alwaysInProject);
    second.reset();
    editor.setTime(2.0);
    EXPECT_EQ(a->time, 2.0);
    EXPECT_EQ(b->time, 1.5);
}

TEST_F(OpenPages, HearOfTheEditsOfEachOther) {
    std::unique_ptr<OpenPage> first, second;
    const auto a = openPage(first);
    const auto b = openPage(second);
    EXPECT_EQ(a->writeLift(4, DSUNDO_OWN_STEP), S_OK);
    EXPECT_EQ(a->calls.back(), "PropertyChanged");
    EXPECT_EQ(b->calls.back(), "PropertyChanged");
    EXPECT_TRUE(b->alwaysInProject);
    editor.undo();
    EXPECT_EQ(std::ranges::count(b->calls, "PropertyChanged"), 2);
    EXPECT_TRUE(b->alwaysInProject);
}

TEST_F(OpenPages, AreReleasedWhenACallOfTheirStartFails) {
    for (const char* call : {"SetPageSite", "SetObjects 1", "Activate"}) {
        ScriptedPage::failing = call;
        EXPECT_THROW(editor.open(kFirstPageId), StatusError) << call;
        EXPECT_EQ(ScriptedPage::alive, 0) << call;
    }
    ScriptedPage::failing.clear();
    EXPECT_THROW(editor.open(kAbsentPageId), StatusError);
    EXPECT_THROW(editor.open(kPagedEffectId), StatusError) << "it is no page";
    editor.setTime(1.0);
}

TEST_F(OpenPages, ReportTheCallsThatFail) {
    std::unique_ptr<OpenPage> page;
    openPage(page);
    ScriptedPage::failing = "Show";
    EXPECT_THROW(page->show(), StatusError);
    ScriptedPage::failing = "Hide";
    EXPECT_THROW(page->hide(), StatusError);
    ScriptedPage::failing = "GetPageInfo";
    EXPECT_THROW(page->title(), StatusError);
    ScriptedPage::failing = "GetPageWindow";
    EXPECT_EQ(page->window(), nullptr);
}

TEST_F(OpenPages, MayBeClosedInsideAnyOfTheirCalls) {
    const auto closeDuring = [&](const std::string& call, auto operation) {
        std::unique_ptr<OpenPage> page;
        {
            const auto scripted = openPage(page);
            scripted->during = [&page, call](const std::string& name) {
                if (name == call) page.reset();
            };
        }
        ASSERT_EQ(ScriptedPage::alive, 1);
        operation(*page);
        EXPECT_FALSE(page) << call;
        EXPECT_EQ(ScriptedPage::alive, 0) << call;
    };
    closeDuring("Show", [](OpenPage& page) { page.show(); });
    closeDuring("Hide", [](OpenPage& page) { page.hide(); });
    closeDuring("GetPageInfo", [](OpenPage& page) { page.title(); });
    closeDuring("GetPageWindow", [](OpenPage& page) { page.window(); });
    closeDuring("OnTimeChange", [&](OpenPage&) { editor.setTime(3.0); });
    LONG value = 0;
    closeDuring("PropertyChanged", [&](OpenPage&) { editor.setValue(kLiftId, ++value); });
    closeDuring("PropertyChanged", [&](OpenPage&) {
        const ComPtr<IDSPageSite> site = ScriptedPage::last->site;
        const VARIANT variant = DSVariantFromLong(++value);
        EXPECT_EQ(site->WriteProperty(&session.effect(), kLiftId, 0.0, &variant, 1), S_OK);
    });
    closeDuring("PropertyChanged", [&](OpenPage&) { editor.undo(); });
    EXPECT_EQ(lift(), 1);
    EXPECT_FALSE(stack().isRecording());
}

TEST_F(OpenPages, MayCloseAndOpenOthersWhenTheTimeChanges) {
    std::unique_ptr<OpenPage> first, second, third;
    const auto a = openPage(first);
    const auto b = openPage(second);
    a->during = [&](const std::string& call) {
        if (call != "OnTimeChange") return;
        second.reset();
        third = editor.open(kSecondPageId);
    };
    editor.setTime(1.0);
    EXPECT_EQ(b->time, -1.0) << "it is closed";
    editor.setTime(2.0);
    EXPECT_EQ(a->time, 2.0);
}

TEST_F(OpenPages, ASiteThatOutlivesItsPageRefusesEverything) {
    std::unique_ptr<OpenPage> page;
    const ComPtr<IDSPageSite> site = openPage(page)->site;
    const ComPtr<IUnknown> object = ScriptedPage::last->object;
    page.reset();
    double seconds = 0.0;
    UNDO_STYLE style = 0;
    const DSUNDOINFO info{L"Late", 0};
    const VARIANT value = DSVariantFromLong(1);
    EXPECT_EQ(site->GetTime(&seconds), E_UNEXPECTED);
    EXPECT_EQ(site->WriteProperty(object.get(), kLiftId, 0.0, &value, 1), E_UNEXPECTED);
    EXPECT_EQ(site->BeginUndo(&info, &style), E_UNEXPECTED);
    EXPECT_EQ(site->EndUndo(2), E_UNEXPECTED);
    EXPECT_EQ(site->CancelUndo(2), E_UNEXPECTED);
}

TEST_F(OpenPages, ClosingEndsTheBracketsOfThePage) {
    std::unique_ptr<OpenPage> page, other;
    const auto scripted = openPage(page);
    const auto otherScripted = openPage(other);
    UNDO_STYLE style = 0;
    UNDO_STYLE otherStyle = 0;
    const DSUNDOINFO info{L"Drag", 0};
    ASSERT_EQ(scripted->site->BeginUndo(&info, &style), S_OK);
    EXPECT_EQ(scripted->writeLift(3, style), S_OK);
    ASSERT_EQ(otherScripted->site->BeginUndo(&info, &otherStyle), S_OK);
    page.reset();
    EXPECT_TRUE(stack().isRecording()) << "the other page's bracket is open";
    EXPECT_EQ(otherScripted->writeLift(4, otherStyle), S_OK);
    EXPECT_EQ(otherScripted->site->EndUndo(otherStyle), S_OK);
    EXPECT_FALSE(stack().isRecording());
    ASSERT_EQ(stack().undoCount(), 1u);
    editor.undo();
    EXPECT_EQ(lift(), 0);
}

}  // namespace
}  // namespace ruvex::runtime::test
