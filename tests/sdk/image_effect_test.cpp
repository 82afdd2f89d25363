#include "sdk/effect/image_effect.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "sdk/images/memory_image.h"
#include "tests/support/copy_effect.h"

namespace ruvex::test {
namespace {

class ImageEffect : public ::testing::Test {
protected:
    /// An image whose bytes count up from `first`.
    static ComPtr<CDSMemoryImage> picture(int first) {
        auto image = CDSMemoryImage::create(2, 3, MFIF_RGBA_RAW_32);
        for (std::size_t i = 0; i < image->byteCount(); ++i) {
            image->bytes()[i] = static_cast<std::byte>(first + static_cast<int>(i));
        }
        return image;
    }

    ComPtr<CopyEffect> effect = ComPtr<CopyEffect>::attach(new CopyEffect);
};

TEST_F(ImageEffect, HoldsWhatItIsHandedUntilCleanup) {
    const auto image = picture(0);
    effect->SetInput(image.get());
    effect->SetInput2(image.get());
    effect->SetOutput(image.get());
    effect->SetPixelMask(image.get(), 1, 2);
    effect->SetOriginalImage(image.get());
    image->AddRef();
    EXPECT_EQ(image->Release(), 6u);
    effect->SetInput(nullptr);
    image->AddRef();
    EXPECT_EQ(image->Release(), 5u);
    effect->Cleanup();
    image->AddRef();
    EXPECT_EQ(image->Release(), 1u);
}

TEST_F(ImageEffect, CountsAndListsItsInputs) {
    const auto first = picture(0);
    const auto second = picture(1);
    ULONG count = 9;
    EXPECT_EQ(effect->GetNumInputs(&count), S_OK);
    EXPECT_EQ(count, 0u);
    effect->SetInput2(second.get());
    effect->SetInput(first.get());
    EXPECT_EQ(effect->GetNumInputs(&count), S_OK);
    EXPECT_EQ(count, 2u);

    IDSImage* images[2] = {};
    EXPECT_EQ(effect->EnumInputs(1, images, &count), S_FALSE);
    EXPECT_EQ(count, 1u);
    images[0]->Release();
    EXPECT_EQ(effect->EnumInputs(2, images, &count), S_OK);
    EXPECT_EQ(images[0], first.get());
    EXPECT_EQ(images[1], second.get());
    for (IDSImage* image : images) image->Release();
    EXPECT_EQ(effect->EnumInputs(1, nullptr, &count), E_POINTER);
}

TEST_F(ImageEffect, TheInputBoxIsTheRegionOrTheWholeInput) {
    DSRECT box{9, 9, 9, 9};
    EXPECT_EQ(effect->GetInputBbox(&box), S_OK);
    EXPECT_EQ(box, DSRECT{});
    effect->SetInput(picture(0).get());
    effect->GetInputBbox(&box);
    EXPECT_EQ(box, (DSRECT{0, 0, 2, 3}));
    const DSRECT region{1, 1, 1, 2};
    EXPECT_EQ(effect->SetROI(&region), S_OK);
    effect->GetInputBbox(&box);
    EXPECT_EQ(box, region);
    EXPECT_EQ(effect->SetROI(nullptr), S_OK);
    effect->GetInputBbox(&box);
    EXPECT_EQ(box, (DSRECT{0, 0, 2, 3}));
    const DSRECT empty{0, 0, 0, 2};
    EXPECT_EQ(effect->SetROI(&empty), E_INVALIDARG);
}

TEST_F(ImageEffect, RefusesARegionThatBeginsOutsideThePicture) {
    const auto out = picture(0);
    effect->SetInput(out.get());
    effect->SetOutput(out.get());
    const DSRECT inside{1, 2, 9, 9};
    EXPECT_EQ(effect->SetROI(&inside), S_OK) << "it may end outside";
    EXPECT_EQ(effect->Verify(), S_OK);
    for (const DSRECT outside : {DSRECT{-1, 0, 2, 2}, DSRECT{0, -1, 2, 2}, DSRECT{2, 0, 2, 2},
                                 DSRECT{0, 3, 2, 2}, DSRECT{INT32_MIN, INT32_MAX, 2, 2}}) {
        EXPECT_EQ(effect->SetROI(&outside), E_INVALIDARG) << outside.x << ", " << outside.y;
        DSRECT box{};
        effect->GetInputBbox(&box);
        EXPECT_EQ(box, inside) << "the region is as before";
    }
}

TEST_F(ImageEffect, RefusesARegionOutsideAnOutputThatComesLater) {
    const DSRECT region{2, 0, 2, 2};
    EXPECT_EQ(effect->SetROI(&region), S_OK) << "there is no picture yet";
    const auto small = picture(0);
    effect->SetInput(small.get());
    effect->SetOutput(small.get());
    EXPECT_EQ(effect->Verify(), E_INVALIDARG);
    effect->SetROI(nullptr);
    EXPECT_EQ(effect->Verify(), S_OK);
}

TEST_F(ImageEffect, RefusesImagesOfDifferentFormats) {
    const auto shallow = picture(0);
    const auto deep = CDSMemoryImage::create(2, 3, MFIF_RGBA_S2_14);
    const auto mask = CDSMemoryImage::create(2, 3, MFIF_A_RAW_8);
    effect->SetInput(shallow.get());
    effect->SetOutput(deep.get());
    EXPECT_EQ(effect->Verify(), E_INVALIDARG);
    effect->SetInput(deep.get());
    EXPECT_EQ(effect->Verify(), S_OK);
    effect->SetInput2(shallow.get());
    EXPECT_EQ(effect->Verify(), E_INVALIDARG);
    effect->SetInput2(nullptr);
    effect->SetInput(mask.get());
    effect->SetOutput(mask.get());
    EXPECT_EQ(effect->Verify(), E_INVALIDARG) << "a format that the effect does not support";
}

TEST_F(ImageEffect, FormatsAreTestedThroughTheImage) {
    EXPECT_EQ(effect->IsFormatSupported(picture(0).get()), S_OK);
    const auto mask = CDSMemoryImage::create(1, 1, MFIF_A_RAW_8);
    EXPECT_EQ(effect->IsFormatSupported(mask.get()), S_FALSE);
    EXPECT_EQ(effect->IsFormatSupported(nullptr), E_POINTER);
}

TEST_F(ImageEffect, RefusesARateThatIsNone) {
    EXPECT_EQ(effect->SetSampleRate(25.0), S_OK);
    EXPECT_EQ(effect->SetSampleRate(0.0), E_INVALIDARG);
    EXPECT_EQ(effect->SetSampleRate(-25.0), E_INVALIDARG);
    EXPECT_EQ(effect->SetSampleRate(std::numeric_limits<double>::quiet_NaN()), E_INVALIDARG);
}

TEST_F(ImageEffect, SmallQuestionsHaveTheHostsAnswers) {
    DSOVERSCAN overscan{1, 1, 1, 1};
    EXPECT_EQ(effect->GetInputOverscan(&overscan), S_OK);
    EXPECT_EQ(overscan.left + overscan.right + overscan.bottom + overscan.top, 0);
    DSTIMERANGE range{};
    EXPECT_EQ(effect->GetTimeDependency(3.0, &range), S_OK);
    EXPECT_TRUE(std::isinf(range.first) && range.first < 0.0);
    EXPECT_TRUE(std::isinf(range.last) && range.last > 0.0);
    LONG mode = 9;
    EXPECT_EQ(effect->GetProcessingMode(&mode), S_OK);
    EXPECT_EQ(mode, 0);
    effect->SetProcessingMode(2);
    effect->GetProcessingMode(&mode);
    EXPECT_EQ(mode, 2);
    EXPECT_EQ(effect->SetTransfo4(nullptr), E_POINTER);
    EXPECT_EQ(effect->GetInfo(nullptr), E_POINTER);
    EXPECT_EQ(effect->GetImageEffectInfo(nullptr), E_POINTER);
}

TEST_F(ImageEffect, ACloneRendersWithTheParametersItWasMadeWith) {
    const VARIANT lift = DSVariantFromLong(5);
    effect->SetValue(kLiftId, 0.0, &lift);
    const DSKey keys[] = {{0.0, 1.0}, {10.0, 11.0}};
    effect->SetKeys(kDelayId, keys, 2);
    ComPtr<IDSProperties> clone;
    ASSERT_EQ(effect->Clone(IID_IDSProperties, clone.putVoid()), S_OK);
    const VARIANT other = DSVariantFromLong(6);
    effect->SetValue(kLiftId, 0.0, &other);
    effect->ClearKeys(kDelayId);
    VARIANT value{};
    clone->GetValue(kLiftId, 0.0, &value);
    EXPECT_EQ(value.lVal, 5);
    clone->GetValue(kDelayId, 5.0, &value);
    EXPECT_EQ(value.dblVal, 6.0);
}

TEST_F(ImageEffect, ACloneHasTheModesOfTheKeys) {
    const DSKey keys[] = {{0.0, 1.0, DSKeyMode::Smooth}, {4.0, 17.0, DSKeyMode::Hold}, {8.0, 0.0}};
    effect->SetKeys(kDelayId, keys, 3);
    ComPtr<IDSProperties> clone;
    ASSERT_EQ(effect->Clone(IID_IDSProperties, clone.putVoid()), S_OK);
    DSKey cloned[3] = {};
    ULONG count = 0;
    ASSERT_EQ(clone->GetKeys(kDelayId, cloned, 3, &count), S_OK);
    EXPECT_TRUE(std::ranges::equal(cloned, keys));
    ASSERT_EQ(effect->CloneAtTime(1.0, IID_IDSProperties, clone.putVoid()), S_OK);
    VARIANT value{};
    clone->GetValue(kDelayId, 0.0, &value);
    EXPECT_EQ(value.dblVal, 3.5);
}

TEST_F(ImageEffect, ACloneAtATimeStandsStill) {
    const DSKey keys[] = {{0.0, 1.0}, {10.0, 11.0}};
    effect->SetKeys(kDelayId, keys, 2);
    ComPtr<IDSProperties> clone;
    ASSERT_EQ(effect->CloneAtTime(5.0, IID_IDSProperties, clone.putVoid()), S_OK);
    VARIANT value{};
    ULONG keyCount = 9;
    clone->GetValue(kDelayId, 0.0, &value);
    EXPECT_EQ(value.dblVal, 6.0);
    EXPECT_EQ(clone->GetKeys(kDelayId, nullptr, 0, &keyCount), S_OK);
    EXPECT_EQ(keyCount, 0u);
    effect->GetKeys(kDelayId, nullptr, 0, &keyCount);
    EXPECT_EQ(keyCount, 2u);
    EXPECT_EQ(effect->CloneAtTime(5.0, IID_IDSProperties, nullptr), E_POINTER);
}

TEST_F(ImageEffect, PagesAreListedInTheirOrderAndGoWithAClone) {
    effect->AddPropertyPage(kDelayId);
    effect->AddPropertyPage(kLiftId);
    EXPECT_TRUE(effect->RemovePropertyPage(kDelayId));
    EXPECT_FALSE(effect->RemovePropertyPage(kInvertId));
    effect->AddPropertyPage(kDelayId);
    ComPtr<IDSPlugIn> clone;
    ASSERT_EQ(effect->Clone(IID_IDSPlugIn, clone.putVoid()), S_OK);
    ULONG count = 0;
    EXPECT_EQ(clone->GetPropertyPageCount(&count), S_OK);
    ASSERT_EQ(count, 2u);
    GUID page{};
    EXPECT_EQ(clone->GetPropertyPage(0, &page), S_OK);
    EXPECT_EQ(page, kLiftId);
    EXPECT_EQ(clone->GetPropertyPage(1, &page), S_OK);
    EXPECT_EQ(page, kDelayId);
    EXPECT_EQ(clone->GetPropertyPage(2, &page), E_INVALIDARG);
}

TEST_F(ImageEffect, ACloneTakesTheImagesAlongAndLetsThemGo) {
    const auto in = picture(0);
    const auto out = picture(100);
    effect->SetInput(in.get());
    effect->SetOutput(out.get());
    ComPtr<IDSImageEffect> clone;
    ASSERT_EQ(effect->Clone(IID_IDSImageEffect, clone.putVoid()), S_OK);
    EXPECT_EQ(clone->Execute(0.0), S_OK);
    EXPECT_EQ(out->bytes()[23], in->bytes()[23]);
    EXPECT_EQ(CopyEffect::liveObjects, 2);
    clone.reset();
    EXPECT_EQ(CopyEffect::liveObjects, 1);
    in->AddRef();
    EXPECT_EQ(in->Release(), 2u);
}

}  // namespace
}  // namespace ruvex::test
