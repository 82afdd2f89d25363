// What a clone takes over from its source, and what it tells it.

#include <gtest/gtest.h>

#include "tests/module/made_effect.h"

namespace ruvex::test {
namespace {

TEST(CloneOfAnEffect, RefusesAMissingPointerAndAnUnknownInterface) {
    const auto effect = makeEffect();
    EXPECT_EQ(effect->Clone(IID_IDSImageEffect, nullptr), E_POINTER);
    void* out = &out;
    EXPECT_EQ(effect->Clone(DSFAMILY_List, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(CloneOfAnEffect, TakesOverParametersAndKeys) {
    Renderer renderer({.width = 8, .height = 8});
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

IRuvexControl& controlOf(const ComPtr<IDSImageEffect>& effect) {
    void* control = nullptr;
    EXPECT_EQ(effect->QueryInterface(kRuvexControlId, &control), S_OK);
    effect->Release();
    return *static_cast<IRuvexControl*>(control);
}

TEST(CloneOfAnEffect, StartsWithTheWorkersOfItsSourceAndKeepsItsOwn) {
    const auto source = makeEffect();
    const auto stranger = makeEffect();
    const std::int32_t processors = controlOf(stranger).workerCount();
    controlOf(source).setWorkerCount(processors + 7);
    const auto clone = cloneOf(source);
    EXPECT_EQ(controlOf(clone).workerCount(), processors + 7);
    controlOf(clone).setWorkerCount(processors + 3);
    EXPECT_EQ(controlOf(clone).workerCount(), processors + 3);
    EXPECT_EQ(controlOf(source).workerCount(), processors + 7);
    EXPECT_EQ(controlOf(stranger).workerCount(), processors)
        << "each object has a count of its own";
    EXPECT_EQ(controlOf(makeEffect()).workerCount(), processors);
}

TEST(CloneOfAnEffect, TakesOverTheRenderState) {
    const auto effect = makeEffect();
    VxDsEffect& source = stateOf(effect);
    source.effectKind = EffectKind::Paint;
    source.fieldSelector = 2;
    source.fieldHandling = FieldHandling::HalfHeight;
    source.fieldScaleY = 0.5f;
    source.cropMode = CropMode::Window;
    source.capabilityFlags = 0x2Au;
    source.infoFlags = 3;
    source.crop = {.left = 0.1f, .right = 0.2f, .bottom = 0.3f, .top = 0.4f, .edgeColour = {1.0f}};
    source.region = {1, 2, 3, 4};
    source.frameOffsetValue = {5, 6};
    source.maskFlagA = 7;
    source.alphaMaskable = 1;
    const auto copy = cloneOf(effect);
    const VxDsEffect& clone = stateOf(copy);
    EXPECT_EQ(clone.effectKind, EffectKind::Paint);
    EXPECT_EQ(clone.fieldSelector, 2);
    EXPECT_EQ(clone.fieldHandling, FieldHandling::HalfHeight);
    EXPECT_EQ(clone.fieldScaleY, 0.5f);
    EXPECT_EQ(clone.cropMode, CropMode::Window);
    EXPECT_EQ(clone.capabilityFlags, 0x2Au);
    EXPECT_EQ(clone.infoFlags, 3u);
    EXPECT_EQ(clone.crop.left, 0.1f);
    EXPECT_EQ(clone.crop.right, 0.2f);
    EXPECT_EQ(clone.crop.bottom, 0.3f);
    EXPECT_EQ(clone.crop.top, 0.4f);
    EXPECT_EQ(clone.crop.edgeColour[0], 1.0f);
    EXPECT_EQ(clone.region, (PixelRegion{1, 2, 3, 4}));
    EXPECT_EQ(clone.frameOffsetValue.x, 5);
    EXPECT_EQ(clone.frameOffsetValue.y, 6);
    EXPECT_EQ(clone.maskFlagA, 7);
    EXPECT_EQ(clone.alphaMaskable, 1);
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

    const auto second = cloneOf(source);
    EXPECT_EQ(stateOf(second).link->geometry(), seen) << "a new clone starts where the source is";
    EXPECT_EQ(stateOf(second).geometry, seen);
}

TEST(CloneOfAnEffect, OutlivesItsSource) {
    const auto clone = cloneOf(makeEffect());
    const auto image = runtime::makeImage(4, 4, MFIF_RGBA_RAW_32);
    clone->SetInput(image.get());
    clone->SetOutput(runtime::makeImage(4, 4, MFIF_RGBA_RAW_32).get());
    EXPECT_EQ(clone->Execute(0.0), S_OK);
}

}  // namespace
}  // namespace ruvex::test
