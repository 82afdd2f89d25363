#include "runtime/page_site.h"

#include <cmath>
#include <gtest/gtest.h>

#include "tests/runtime/scripted_page.h"

namespace ruvex::runtime::test {
namespace {

class Site : public EditorTest {
protected:
    void TearDown() override {
        site->detach();
        EditorTest::TearDown();
    }

    HRESULT write(LONG value, UNDO_STYLE style) {
        const VARIANT variant = DSVariantFromLong(value);
        return site->WriteProperty(&session.effect(), kLiftId, 0.0, &variant, style);
    }

    HRESULT writeDelay(double value, double seconds) {
        const VARIANT variant = DSVariantFromReal(value);
        return site->WriteProperty(&session.effect(), kDelayId, seconds, &variant, DSUNDO_OWN_STEP);
    }

    UNDO_STYLE begin(const wchar_t* name, std::uint64_t mergeKey = 0) {
        const DSUNDOINFO info{name, mergeKey};
        UNDO_STYLE style = 0;
        EXPECT_EQ(site->BeginUndo(&info, &style), S_OK);
        return style;
    }

    ComPtr<PageSite> site = ComPtr<PageSite>::attach(new PageSite(editor));
};

TEST_F(Site, WithoutABracketEachWriteIsAStep) {
    EXPECT_EQ(write(1, DSUNDO_JOIN), S_OK);
    EXPECT_EQ(write(2, DSUNDO_OWN_STEP), S_OK);
    EXPECT_EQ(stack().undoCount(), 2u);
    editor.undo();
    EXPECT_EQ(lift(), 1);
}

TEST_F(Site, InABracketAllWritesAreOneStep) {
    const UNDO_STYLE outer = begin(L"Preset");
    EXPECT_GT(outer, DSUNDO_OWN_STEP);
    EXPECT_EQ(write(1, outer), S_OK);
    const UNDO_STYLE inner = begin(L"Inner");
    EXPECT_NE(inner, outer);
    EXPECT_EQ(write(2, inner), S_OK);
    EXPECT_EQ(write(3, outer), S_OK);
    EXPECT_EQ(write(4, DSUNDO_JOIN), S_OK);
    EXPECT_EQ(site->EndUndo(inner), S_OK);
    EXPECT_EQ(write(5, DSUNDO_OWN_STEP), S_OK);
    EXPECT_EQ(site->EndUndo(outer), S_OK);
    EXPECT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(stack().undoName(), L"Preset");
    editor.undo();
    EXPECT_EQ(lift(), 0);
}

TEST_F(Site, AnOuterBracketEndsWithTheBracketsInsideIt) {
    const UNDO_STYLE outer = begin(L"Outer");
    EXPECT_EQ(write(1, outer), S_OK);
    const UNDO_STYLE inner = begin(L"Inner");
    EXPECT_EQ(site->CancelUndo(outer), E_INVALIDARG) << "is not the innermost one";
    EXPECT_EQ(site->EndUndo(outer), S_OK);
    EXPECT_EQ(site->EndUndo(outer), E_INVALIDARG) << "has ended";
    EXPECT_EQ(write(2, inner), S_OK);
    EXPECT_TRUE(stack().isRecording());
    EXPECT_EQ(site->EndUndo(inner), S_OK);
    EXPECT_FALSE(stack().isRecording());
    EXPECT_EQ(stack().undoCount(), 1u);
    EXPECT_EQ(stack().undoName(), L"Outer");
}

TEST_F(Site, AnEmptyBracketIsNoStep) {
    write(1, DSUNDO_OWN_STEP);
    editor.undo();
    EXPECT_EQ(site->EndUndo(begin(nullptr)), S_OK);
    EXPECT_EQ(stack().undoCount(), 0u);
    EXPECT_EQ(stack().redoCount(), 1u);
}

TEST_F(Site, StylesOfNoOpenBracketAreRefused) {
    EXPECT_EQ(write(1, 2), E_INVALIDARG);
    const UNDO_STYLE ended = begin(L"Ended");
    EXPECT_EQ(write(1, ended + 1), E_INVALIDARG);
    EXPECT_EQ(site->EndUndo(ended), S_OK);
    EXPECT_EQ(write(1, ended), E_INVALIDARG);
    EXPECT_EQ(site->EndUndo(ended), E_INVALIDARG);
    EXPECT_EQ(site->CancelUndo(ended), E_INVALIDARG);
    EXPECT_EQ(site->EndUndo(DSUNDO_OWN_STEP), E_INVALIDARG);
    EXPECT_EQ(lift(), 0);
}

TEST_F(Site, CancelUndoesTheInnermostBracket) {
    write(1, DSUNDO_OWN_STEP);
    const UNDO_STYLE drag = begin(L"Drag");
    write(2, drag);
    EXPECT_EQ(site->CancelUndo(drag), S_OK);
    EXPECT_EQ(lift(), 1);
    EXPECT_EQ(stack().undoCount(), 1u);
}

TEST_F(Site, ArrowKeysMergeByTheirKey) {
    for (LONG value = 1; value <= 3; ++value) {
        const UNDO_STYLE style = begin(L"Lift", 99);
        write(value, style);
        site->EndUndo(style);
    }
    EXPECT_EQ(stack().undoCount(), 1u);
}

TEST_F(Site, ATimeOfMinusOneIsTheCurrentOne) {
    const DSKey keys[] = {{0.0, 1.0}};
    editor.setKeys(kDelayId, keys);
    editor.setTime(2.0);
    EXPECT_EQ(writeDelay(5.0, -1.0), S_OK);
    EXPECT_EQ(writeDelay(6.0, 3.0), S_OK);
    EXPECT_EQ(session.keys(kDelayId), (std::vector<DSKey>{{0.0, 1.0}, {2.0, 5.0}, {3.0, 6.0}}));
}

TEST_F(Site, RefusesWhatItCannotWrite) {
    const VARIANT value = DSVariantFromLong(1);
    IUnknown* const effect = &session.effect();
    EXPECT_EQ(site->WriteProperty(nullptr, kLiftId, 0.0, &value, 1), E_POINTER);
    EXPECT_EQ(site->WriteProperty(effect, kLiftId, 0.0, nullptr, 1), E_POINTER);
    EXPECT_EQ(site->WriteProperty(effect, kFirstPageId, 0.0, &value, 1), E_INVALIDARG)
        << "no property has this identifier";
    EXPECT_EQ(site->WriteProperty(effect, kDelayId, 0.0, &value, 1), E_INVALIDARG);
    EXPECT_EQ(writeDelay(std::nan(""), 0.0), E_INVALIDARG);
    const auto other = makeEditedObject();
    EXPECT_EQ(site->WriteProperty(ComPtr<IDSProperties>(other).get(), kLiftId, 0.0, &value, 1),
              E_INVALIDARG);
    EXPECT_EQ(site->BeginUndo(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(stack().undoCount(), 0u);
    EXPECT_FALSE(stack().isRecording());
}

TEST_F(Site, IsAPageSite) {
    ComPtr<IDSPageSite> found;
    EXPECT_EQ(site->QueryInterface(IID_IDSPageSite, found.putVoid()), S_OK);
    EXPECT_EQ(found.get(), site.get());
}

}  // namespace
}  // namespace ruvex::runtime::test
