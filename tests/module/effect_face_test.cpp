// What the effect tells its host of itself, and what it demands of a render.

#include <gtest/gtest.h>

#include "tests/module/made_effect.h"

namespace ruvex::test {
namespace {

std::int32_t kindOf(const GUID& family) {
    const auto effect = makeEffect();
    describe(effect, family);
    return static_cast<std::int32_t>(stateOf(effect).effectKind);
}

TEST(EffectFace, FamiliesDecideTheKind) {
    EXPECT_EQ(kindOf(DSFAMILY_Filter), 1);
    EXPECT_EQ(kindOf(DSFAMILY_Filter2), 1);
    EXPECT_EQ(kindOf(DSFAMILY_Filter3), 1);
    EXPECT_EQ(kindOf(DSFAMILY_Kind2), 2);
    EXPECT_EQ(kindOf(DSFAMILY_WithoutInput), 3);
    EXPECT_EQ(kindOf(DSFAMILY_Paint), 4);
    EXPECT_EQ(kindOf(DSFAMILY_Transition), 5);
    EXPECT_EQ(kindOf(DSFAMILY_Kind7), 7);
}

TEST(EffectFace, AnyOtherFamilyLeavesTheKindAsItWas) {
    const auto effect = makeEffect();
    describe(effect, DSFAMILY_Paint);
    describe(effect, DSFAMILY_List);
    EXPECT_EQ(stateOf(effect).effectKind, EffectKind::Paint);
}

const std::vector<GUID> kAllPages = {kRuvexPageId, kGunsPageId,    kBreakup1PageId, kBreakup2PageId,
                                     kShashPageId, kEffectsPageId, kCropPageId,     kHelpPageId};

TEST(EffectFace, FiltersAndPaintShowTheirPagesInOrder) {
    for (const GUID& family : {DSFAMILY_Filter, DSFAMILY_Paint}) {
        const auto effect = makeEffect();
        EXPECT_TRUE(pagesOf(effect).empty());
        describe(effect, family);
        EXPECT_EQ(pagesOf(effect), kAllPages);
    }
}

TEST(EffectFace, OtherKindsHaveNoPages) {
    for (const GUID& family :
         {DSFAMILY_Kind2, DSFAMILY_WithoutInput, DSFAMILY_Transition, DSFAMILY_Kind7}) {
        const auto effect = makeEffect();
        describe(effect, family);
        EXPECT_TRUE(pagesOf(effect).empty());
    }
}

TEST(EffectFace, PagesAreListedAtTheFirstDescriptionOnly) {
    const auto effect = makeEffect();
    EXPECT_EQ(stateOf(effect).infoFlags & 1, 0u);
    describe(effect, DSFAMILY_WithoutInput);
    EXPECT_EQ(stateOf(effect).infoFlags & 1, 1u);
    describe(effect, DSFAMILY_Filter);
    EXPECT_TRUE(pagesOf(effect).empty());
    const auto clone = cloneOf(effect);
    describe(clone, DSFAMILY_Filter);
    EXPECT_TRUE(pagesOf(clone).empty()) << "its source was described";
}

TEST(EffectFace, DescribingItselfAgainAddsNoPages) {
    const auto effect = makeEffect();
    describe(effect, DSFAMILY_Filter);
    describe(effect, DSFAMILY_Paint);
    EXPECT_EQ(pagesOf(effect), kAllPages);
    const auto clone = cloneOf(effect);
    describe(clone, DSFAMILY_Filter);
    EXPECT_EQ(pagesOf(clone), kAllPages) << "a clone has its source's";
}

TEST(EffectFace, ARecordOfAnotherKindIsRefusedAndChangesNothing) {
    const auto effect = makeEffect();
    DSIMAGEEFFECTINFO info;
    info.family = DSFAMILY_Paint;
    info.recordId = DSFAMILY_List;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), E_INVALIDARG);
    EXPECT_EQ(effect->GetImageEffectInfo(nullptr), E_POINTER);
    EXPECT_EQ(stateOf(effect).effectKind, EffectKind::Unknown);
    EXPECT_EQ(stateOf(effect).infoFlags, 0u);
    EXPECT_TRUE(pagesOf(effect).empty());
    EXPECT_EQ(info.flags, 0u);
}

TEST(EffectFace, ThePlugInRecordNamesTheClass) {
    const auto plugIn = makeEffect<IDSPlugIn>(IID_IDSPlugIn);
    auto info = junkRecord<DSPLUGININFO>();
    EXPECT_EQ(plugIn->GetInfo(&info), S_OK);
    EXPECT_EQ(info.category, guidFromText("0BC5A2F0-5C49-11CF-A04A-00A02418CFB9"));
    EXPECT_EQ(info.kind, guidFromText("0BC5A2F2-5C49-11CF-A04A-00A02418CFB9"));
    EXPECT_EQ(info.classId, kRuvexClassId);
    EXPECT_EQ(info.noIdentifier, 0u);
    EXPECT_EQ(info.last, 0u);
    info = {};
    info.recordId = DSFAMILY_List;
    EXPECT_EQ(plugIn->GetInfo(&info), E_INVALIDARG);
    EXPECT_NE(info.classId, kRuvexClassId);
    EXPECT_EQ(plugIn->GetInfo(nullptr), E_POINTER);
}

TEST(EffectFace, TheToolShowsTheModulesStrings) {
    DSTOOLINFO info;
    const auto plugIn = makeEffect<IDSPlugIn>(IID_IDSPlugIn);
    ASSERT_EQ(plugIn->GetToolInfo(&info), S_OK);
    EXPECT_STREQ(info.name, L"V_Ruvex");
    EXPECT_STREQ(info.description, L"Osterlin's Ruvex Effect");
    EXPECT_EQ(info.module, builtModule()->instance());
    EXPECT_EQ(info.bitmapId, 102u);
    EXPECT_EQ(info.classId, kRuvexClassId);
    EXPECT_EQ(plugIn->GetToolInfo(nullptr), E_POINTER);
}

TEST(EffectFace, RendersTwoFormats) {
    const auto effect = makeEffect();
    EXPECT_EQ(effect->TestFormat(MFIF_RGBA_RAW_32), S_OK);
    EXPECT_EQ(effect->TestFormat(MFIF_RGBA_S2_14), S_OK);
    EXPECT_NE(effect->TestFormat(MFIF_A_RAW_8), S_OK);
}

class Verifying : public testing::Test {
protected:
    ComPtr<IDSImage> image = runtime::makeImage(4, 4, MFIF_RGBA_RAW_32);

    ComPtr<IDSImageEffect> effectOf(const GUID& family, bool withInput) {
        auto effect = makeEffect();
        describe(effect, family);
        effect->SetOutput(image.get());
        if (withInput) effect->SetInput(image.get());
        return effect;
    }
};

TEST_F(Verifying, WithoutAnOutputNothingCanBeRendered) {
    const auto effect = effectOf(DSFAMILY_Filter, true);
    EXPECT_EQ(effect->Verify(), S_OK);
    effect->SetOutput(nullptr);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    EXPECT_EQ(effect->Execute(0.0), E_POINTER);
}

TEST_F(Verifying, KindsThatNeedAnInput) {
    for (const GUID& family : {DSFAMILY_Filter, DSFAMILY_Kind2}) {
        EXPECT_EQ(effectOf(family, false)->Verify(), E_POINTER);
        EXPECT_EQ(effectOf(family, true)->Verify(), S_OK);
    }
    EXPECT_EQ(effectOf(DSFAMILY_WithoutInput, false)->Verify(), S_OK) << "kind 3 needs none";
    EXPECT_EQ(effectOf(DSFAMILY_Kind7, false)->Verify(), S_OK);
}

TEST_F(Verifying, PaintNeedsAPixelMask) {
    const auto effect = effectOf(DSFAMILY_Paint, true);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    effect->SetPixelMask(image.get(), 0, 0);
    EXPECT_EQ(effect->Verify(), S_OK);
}

TEST_F(Verifying, ATransitionNeedsASecondInput) {
    const auto effect = effectOf(DSFAMILY_Transition, true);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    effect->SetInput2(image.get());
    EXPECT_EQ(effect->Verify(), S_OK);
}

}  // namespace
}  // namespace ruvex::test
