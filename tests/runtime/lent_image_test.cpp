#include "runtime/lent_image.h"

#include <gtest/gtest.h>
#include <vector>

#include "runtime/error.h"
#include "tests/runtime/copy_module.h"

namespace ruvex::runtime::test {
namespace {

using Pixels = std::vector<std::byte>;

Pixels picture(int value) {
    return Pixels(kAllBytes, static_cast<std::byte>(value));
}

ComPtr<IDSImage> lendSmall(LentImage& lent, Pixels& pixels) {
    return lent.lend(kSmallProject, 8, 6, MFIF_RGBA_RAW_32, pixels.data());
}

/// Renders from and into the given memory.
void renderBetween(EffectSession& session, Pixels& source, Pixels& result) {
    LentImage input, output;
    const Loan in(input, kSmallProject, 8, 6, MFIF_RGBA_RAW_32, source.data());
    const Loan out(output, kSmallProject, 8, 6, MFIF_RGBA_RAW_32, result.data());
    RenderRequest request;
    request.input = in.image();
    request.output = out.image();
    session.render(request);
}

TEST(LentImage, IsTheCallersMemoryAndFillsTheProject) {
    Pixels pixels = picture(5);
    LentImage lent;
    const auto image = lent.lend({720, 576, 1.25, 25.0}, 4, 12, MFIF_RGBA_RAW_32, pixels.data());
    DSFloatPair world{};
    image->GetWorldSize(&world);
    EXPECT_EQ(world, (DSFloatPair{720.0f, 460.8f}));
    EXPECT_EQ(image->GetStatus(), S_OK);
    EXPECT_EQ(image->GetPixels(), pixels.data());
}

TEST(LentImage, TakenBackItHasNoPixels) {
    Pixels pixels = picture(5);
    ComPtr<IDSImage> kept;
    {
        LentImage lent;
        kept = lendSmall(lent, pixels);
        lent.takeBack();
        EXPECT_EQ(kept->GetPixels(), nullptr);
        kept = lendSmall(lent, pixels);
    }
    EXPECT_EQ(kept->GetStatus(), E_FAIL);
    EXPECT_EQ(kept->GetPixels(), nullptr);
}

TEST(LentImage, OfOneSizeIsTheSameObjectEachTimeUnlessSomebodyHoldsIt) {
    Pixels pixels = picture(5), others = picture(6);
    LentImage lent;
    auto image = lendSmall(lent, pixels);
    EXPECT_TRUE(lent.isHeld());
    const IDSImage* const first = image.get();
    image.reset();
    EXPECT_FALSE(lent.isHeld());
    const auto kept = lendSmall(lent, pixels);
    EXPECT_EQ(kept.get(), first);
    const auto next = lendSmall(lent, others);
    EXPECT_NE(next.get(), first);
    EXPECT_EQ(kept->GetPixels(), nullptr) << "it would show the next picture";
    EXPECT_EQ(next->GetPixels(), others.data());
    const auto wide = lent.lend(kSmallProject, 4, 3, MFIF_RGBA_S2_14, others.data());
    LONG width = 0, height = 0;
    wide->GetSize(&width, &height);
    EXPECT_EQ(width, 4);
    EXPECT_EQ(height, 3);
}

TEST(LentImage, WhatIsNoImageIsAnError) {
    Pixels pixels = picture(5);
    LentImage lent;
    EXPECT_THROW(lent.lend(kSmallProject, 0, 6, MFIF_RGBA_RAW_32, pixels.data()), Error);
    EXPECT_THROW(lent.lend(kSmallProject, 8, 6, IID_IDSImage, pixels.data()), Error);
}

TEST(LentImage, AnEffectReadsAndWritesIt) {
    EffectSession session(copySetup());
    Pixels source = picture(5), result = picture(9);
    renderBetween(session, source, result);
    EXPECT_EQ(result, picture(5));
}

TEST(LentImage, AnEffectThatKeepsItReadsNoMemoryThatIsGone) {
    EffectSession session(copySetup({}, "copy_module_keeping"));
    Pixels result = picture(9);
    {
        Pixels source = picture(5);
        renderBetween(session, source, result);
        EXPECT_EQ(result, picture(5));
    }
    Pixels other = picture(7);
    result = picture(9);
    renderBetween(session, other, result);
    EXPECT_EQ(result, picture(9)) << "it asks the image that it kept, which has no pixels";
}

}  // namespace
}  // namespace ruvex::runtime::test
