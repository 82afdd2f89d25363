// What the effect tells its host of itself, and what it demands of a render.

#include <gtest/gtest.h>

#include "effect/ruvex.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

constexpr GUID kFilterFamily = guidFromText("AE0D7C31-95AA-11D0-B685-00A024191AE0");
constexpr GUID kFamilyOfKind2 = guidFromText("AE0D7C33-95AA-11D0-B685-00A024191AE0");
constexpr GUID kKeyFamily = guidFromText("61054A81-9662-11D0-B685-00A024191AE0");
constexpr GUID kPaintFamily = guidFromText("AE0D7C40-95AA-11D0-B685-00A024191AE0");
constexpr GUID kTransitionFamily = guidFromText("61054A80-9662-11D0-B685-00A024191AE0");
constexpr GUID kFamilyOfKind7 = guidFromText("AE0D7C34-95AA-11D0-B685-00A024191AE0");
constexpr GUID kNoFamily = guidFromText("183E3834-D79D-11D0-A7AE-00A0C9068107");

template <class T>
ComPtr<T> makeEffect(const GUID& id) {
    ComPtr<T> effect;
    builtModule()->classFactory(kRuvexClassId)->CreateInstance(nullptr, id, effect.putVoid());
    return effect;
}

ComPtr<IDSImageEffect> makeEffect() {
    return makeEffect<IDSImageEffect>(IID_IDSImageEffect);
}

// The render state behind an effect; good as long as the effect.
VxDsEffect& stateOf(const ComPtr<IDSImageEffect>& effect, const GUID& id = kVxDsEffectId) {
    void* state = nullptr;
    EXPECT_EQ(effect->QueryInterface(id, &state), S_OK);
    effect->Release();
    return *static_cast<VxDsEffect*>(state);
}

std::int32_t kindOf(const GUID& family) {
    const auto effect = makeEffect();
    DSIMAGEEFFECTINFO info;
    info.family = family;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
    return stateOf(effect).effectKind;
}

TEST(EffectFace, FamiliesDecideTheKind) {
    EXPECT_EQ(kindOf(kFilterFamily), 1);
    EXPECT_EQ(kindOf(guidFromText("28610EB3-AECA-11D1-BFAD-0800368E7203")), 1);
    EXPECT_EQ(kindOf(guidFromText("95F7E8A0-8B84-11D1-94A3-00A0C911C625")), 1);
    EXPECT_EQ(kindOf(kFamilyOfKind2), 2);
    EXPECT_EQ(kindOf(kKeyFamily), 3);
    EXPECT_EQ(kindOf(kPaintFamily), 4);
    EXPECT_EQ(kindOf(kTransitionFamily), 5);
    EXPECT_EQ(kindOf(kFamilyOfKind7), 7);
}

TEST(EffectFace, AnyOtherFamilyLeavesTheKindAsItWas) {
    const auto effect = makeEffect();
    DSIMAGEEFFECTINFO info;
    info.family = kPaintFamily;
    effect->GetImageEffectInfo(&info);
    info.family = kNoFamily;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
    EXPECT_EQ(stateOf(effect).effectKind, 4);
}

TEST(EffectFace, TheImageEffectRecordOfAFilter) {
    DSIMAGEEFFECTINFO info;
    info.family = kFilterFamily;
    ASSERT_EQ(makeEffect()->GetImageEffectInfo(&info), S_OK);
    EXPECT_EQ(info.reserved, 0u);
    EXPECT_EQ(info.field2, 0u);
    EXPECT_EQ(info.field3, 8u);
    EXPECT_EQ(info.field4, 1u);
    EXPECT_EQ(info.field5, 0u);
    EXPECT_EQ(info.field6 + info.field7 + info.field8 + info.field9, 0u);
    EXPECT_EQ(info.flags, 10u | 0x100u | 0x210u);
}

TEST(EffectFace, TheImageEffectRecordsOfPaintAndTransition) {
    DSIMAGEEFFECTINFO info;
    info.family = kPaintFamily;
    ASSERT_EQ(makeEffect()->GetImageEffectInfo(&info), S_OK);
    EXPECT_EQ(info.field2, 96u);
    EXPECT_EQ(info.field3, 8u);
    EXPECT_EQ(info.field6, 1u);
    EXPECT_EQ(info.field7, 0u);
    EXPECT_EQ(info.field8, 1u);
    EXPECT_EQ(info.field9, 0u);

    info = {};
    info.family = kTransitionFamily;
    ASSERT_EQ(makeEffect()->GetImageEffectInfo(&info), S_OK);
    EXPECT_EQ(info.field3, 2u);
    EXPECT_EQ(info.field5, 1u);
}

std::vector<GUID> pagesOf(const ComPtr<IDSImageEffect>& effect) {
    const auto plugIn = effect.query<IDSPlugIn>(IID_IDSPlugIn);
    ULONG count = 0;
    EXPECT_EQ(plugIn->GetPropertyPageCount(&count), S_OK);
    std::vector<GUID> pages(count);
    for (ULONG i = 0; i < count; ++i) EXPECT_EQ(plugIn->GetPropertyPage(i, &pages[i]), S_OK);
    return pages;
}

const std::vector<GUID> kAllPages = {kRuvexPageId, kGunsPageId,    kBreakup1PageId, kBreakup2PageId,
                                     kShashPageId, kEffectsPageId, kCropPageId,     kHelpPageId};

TEST(EffectFace, FiltersAndPaintShowTheirPagesInOrder) {
    for (const GUID& family : {kFilterFamily, kPaintFamily}) {
        const auto effect = makeEffect();
        EXPECT_TRUE(pagesOf(effect).empty());
        DSIMAGEEFFECTINFO info;
        info.family = family;
        effect->GetImageEffectInfo(&info);
        EXPECT_EQ(pagesOf(effect), kAllPages);
    }
}

TEST(EffectFace, OtherKindsHaveNoPages) {
    for (const GUID& family : {kFamilyOfKind2, kKeyFamily, kTransitionFamily, kFamilyOfKind7}) {
        const auto effect = makeEffect();
        DSIMAGEEFFECTINFO info;
        info.family = family;
        effect->GetImageEffectInfo(&info);
        EXPECT_TRUE(pagesOf(effect).empty());
    }
}

TEST(EffectFace, DescribingItselfAgainAddsNoPages) {
    const auto effect = makeEffect();
    DSIMAGEEFFECTINFO info;
    info.family = kFilterFamily;
    effect->GetImageEffectInfo(&info);
    effect->GetImageEffectInfo(&info);
    info.family = kPaintFamily;
    effect->GetImageEffectInfo(&info);
    EXPECT_EQ(pagesOf(effect), kAllPages);
    ComPtr<IDSImageEffect> clone;
    ASSERT_EQ(effect->Clone(IID_IDSImageEffect, clone.putVoid()), S_OK);
    clone->GetImageEffectInfo(&info);
    EXPECT_EQ(pagesOf(clone), kAllPages) << "a clone has its source's";
}

TEST(EffectFace, RecordsOfAnotherKindAreRefused) {
    const auto effect = makeEffect();
    DSIMAGEEFFECTINFO imageInfo;
    imageInfo.recordId = kNoFamily;
    EXPECT_EQ(effect->GetImageEffectInfo(&imageInfo), E_INVALIDARG);
    EXPECT_EQ(effect->GetImageEffectInfo(nullptr), E_POINTER);

    const auto plugIn = effect.query<IDSPlugIn>(IID_IDSPlugIn);
    DSPLUGININFO info;
    EXPECT_EQ(plugIn->GetInfo(&info), S_OK);
    EXPECT_EQ(info.category, guidFromText("0BC5A2F0-5C49-11CF-A04A-00A02418CFB9"));
    EXPECT_EQ(info.kind, guidFromText("0BC5A2F2-5C49-11CF-A04A-00A02418CFB9"));
    EXPECT_EQ(info.classId, kRuvexClassId);
    info.recordId = kNoFamily;
    EXPECT_EQ(plugIn->GetInfo(&info), E_INVALIDARG);
}

TEST(EffectFace, TheToolShowsTheModulesStrings) {
    DSTOOLINFO info;
    ASSERT_EQ(makeEffect<IDSPlugIn>(IID_IDSPlugIn)->GetToolInfo(&info), S_OK);
    EXPECT_STREQ(info.name, L"V_Ruvex");
    EXPECT_STREQ(info.description, L"Osterlin's Ruvex Effect");
    EXPECT_EQ(info.bitmapId, 102u);
    EXPECT_EQ(info.classId, kRuvexClassId);
}

TEST(EffectFace, RendersTwoFormats) {
    const auto effect = makeEffect();
    EXPECT_EQ(effect->TestFormat(MFIF_RGBA_RAW_32), S_OK);
    EXPECT_EQ(effect->TestFormat(MFIF_RGBA_S2_14), S_OK);
    EXPECT_NE(effect->TestFormat(MFIF_A_RAW_8), S_OK);
}

TEST(EffectFace, BothIdentifiersGiveTheRenderState) {
    const auto effect = makeEffect();
    EXPECT_EQ(&stateOf(effect, kRuvexClassId), &stateOf(effect, kVxDsEffectId));
    EXPECT_EQ(stateOf(effect).cropMode, 2);
    EXPECT_EQ(stateOf(effect).fieldHandling, 0);
    EXPECT_EQ(stateOf(effect).capabilityFlags, 95u);
}

class Verifying : public testing::Test {
protected:
    ComPtr<IDSImage> image = runtime::makeImage(4, 4, MFIF_RGBA_RAW_32);

    ComPtr<IDSImageEffect> effectOf(const GUID& family, bool withInput) {
        auto effect = makeEffect();
        DSIMAGEEFFECTINFO info;
        info.family = family;
        effect->GetImageEffectInfo(&info);
        effect->SetOutput(image.get());
        if (withInput) effect->SetInput(image.get());
        return effect;
    }
};

TEST_F(Verifying, WithoutAnOutputNothingCanBeRendered) {
    const auto effect = effectOf(kFilterFamily, true);
    EXPECT_EQ(effect->Verify(), S_OK);
    effect->SetOutput(nullptr);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    EXPECT_EQ(effect->Execute(0.0), E_POINTER);
}

TEST_F(Verifying, KindsThatNeedAnInput) {
    for (const GUID& family : {kFilterFamily, kFamilyOfKind2}) {
        EXPECT_EQ(effectOf(family, false)->Verify(), E_POINTER);
        EXPECT_EQ(effectOf(family, true)->Verify(), S_OK);
    }
    EXPECT_EQ(effectOf(kKeyFamily, false)->Verify(), S_OK) << "kind 3 needs none";
    EXPECT_EQ(effectOf(kFamilyOfKind7, false)->Verify(), S_OK);
}

TEST_F(Verifying, PaintNeedsAPixelMask) {
    const auto effect = effectOf(kPaintFamily, true);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    effect->SetPixelMask(image.get(), 0, 0);
    EXPECT_EQ(effect->Verify(), S_OK);
}

TEST_F(Verifying, ATransitionNeedsASecondInput) {
    const auto effect = effectOf(kTransitionFamily, true);
    EXPECT_EQ(effect->Verify(), E_POINTER);
    effect->SetInput2(image.get());
    EXPECT_EQ(effect->Verify(), S_OK);
}

TEST(CloneOfAnEffect, RefusesAMissingPointerAndAnUnknownInterface) {
    const auto effect = makeEffect();
    EXPECT_EQ(effect->Clone(IID_IDSImageEffect, nullptr), E_POINTER);
    void* out = &out;
    EXPECT_EQ(effect->Clone(kNoFamily, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(CloneOfAnEffect, TakesOverParametersKeysAndKind) {
    Renderer renderer({.width = 8, .height = 8}, nullptr, kPaintFamily);
    renderer.set(ParameterId::Seed, 17);
    renderer.set(ParameterId::CropLeft, 30);
    renderer.set(ParameterId::MaskGreen, 0);
    renderer.animate(ParameterId::MasterBreakup, {{0.0, 10.0}, {1.0, 20.0}});
    const auto clone = renderer.session().clone();
    for (const ParameterRow& parameter : parameterTable()) {
        EXPECT_EQ(clone.value(parameter.identifier, 0.5),
                  renderer.session().value(parameter.identifier, 0.5))
            << parameter.label;
    }
    EXPECT_EQ(clone.value(row(ParameterId::MasterBreakup).identifier, 0.5), 15.0);
}

TEST(CloneOfAnEffect, ReportsTheGeometryOfItsFramesToItsSource) {
    Renderer renderer({.width = 40, .height = 20, .pixelAspect = 2.0});
    const ComPtr<IDSImageEffect> source = &renderer.session().effect();
    auto clone = renderer.session().clone();
    runtime::RenderRequest request;
    auto input = runtime::makeProjectImage(renderer.project(), 40, 20, MFIF_RGBA_RAW_32);
    input->setWorldOrigin({3.0f, 1.0f});
    request.input = input;
    request.output = runtime::makeProjectImage(renderer.project(), 40, 20, MFIF_RGBA_RAW_32);
    clone.render(request);
    const FrameGeometry seen = stateOf(source).link->geometry();
    EXPECT_EQ(seen.input.origin, (DSFloatPair{6.0f, 2.0f}));
    EXPECT_EQ(seen.input.size, (DSFloatPair{80.0f, 20.0f}));
    EXPECT_EQ(seen.input2, seen.input) << "the source has no place for a second input";
}

TEST(CloneOfAnEffect, OutlivesItsSource) {
    ComPtr<IDSImageEffect> clone;
    makeEffect()->Clone(IID_IDSImageEffect, clone.putVoid());
    const auto image = runtime::makeImage(4, 4, MFIF_RGBA_RAW_32);
    clone->SetInput(image.get());
    clone->SetOutput(runtime::makeImage(4, 4, MFIF_RGBA_RAW_32).get());
    EXPECT_EQ(clone->Execute(0.0), S_OK);
}

void setDefaults(Renderer& renderer) {
    const ComPtr<IDSImageEffect> effect = &renderer.session().effect();
    EXPECT_EQ(effect.query<IDSPlugIn>(IID_IDSPlugIn)->SetDefaults(), S_OK);
}

TEST(Parameters, OneThatIsNotAnimatedReadsAsItsMemberAtAnyTime) {
    Renderer renderer({.width = 8, .height = 8});
    setDefaults(renderer);
    const GUID id = row(ParameterId::MasterBreakup).identifier;
    EXPECT_EQ(renderer.session().value(id, -5.0), 50.0);
    renderer.set(ParameterId::MasterBreakup, 12.5);
    EXPECT_EQ(renderer.session().value(id, 0.0), 12.5);
    EXPECT_EQ(renderer.session().value(id, 1e6), 12.5);
}

TEST(Parameters, TheHostSeesThemAsTheyAreDeclared) {
    Renderer renderer({.width = 8, .height = 8});
    setDefaults(renderer);
    for (const ParameterRow& parameter : parameterTable()) {
        const CDSParamDef* definition = renderer.session().definition(parameter.identifier);
        ASSERT_TRUE(definition) << parameter.label;
        EXPECT_EQ(definition->classification, 32768u);
        EXPECT_EQ(definition->nameId, definition->shortNameId);
        EXPECT_EQ(definition->module, builtModule()->instance());
        EXPECT_EQ(renderer.session().value(parameter.identifier), parameter.defaultValue)
            << parameter.label;
    }
    const auto definitionOf = [&](ParameterId id) {
        return *renderer.session().definition(row(id).identifier);
    };
    EXPECT_EQ(definitionOf(ParameterId::Blur).capabilities, 5u);
    EXPECT_EQ(definitionOf(ParameterId::Blur).type, 5);
    EXPECT_EQ(definitionOf(ParameterId::Seed).capabilities, 4u);
    EXPECT_EQ(definitionOf(ParameterId::Seed).type, 3);
    EXPECT_EQ(definitionOf(ParameterId::FishEye).type, 11);
    EXPECT_EQ(definitionOf(ParameterId::Presets).capabilities, 532u);
    EXPECT_EQ(definitionOf(ParameterId::HideOverlayControls).type, 11);
}

}  // namespace
}  // namespace ruvex::test
