#include "runtime/kept_image.h"

#include <gtest/gtest.h>

#include "runtime/error.h"

namespace ruvex::runtime {
namespace {

constexpr Project kProject{720, 576, 1.25, 25.0};

TEST(KeptImage, IsTheSameOneAgain) {
    KeptImage kept;
    const CDSMemoryImage* const first = kept.take(kProject, 4, 3, MFIF_RGBA_RAW_32).get();
    EXPECT_EQ(kept.take(kProject, 4, 3, MFIF_RGBA_RAW_32).get(), first);
    DSFloatPair world{};
    kept.take({100, 50, 1.0, 25.0}, 4, 3, MFIF_RGBA_RAW_32)->GetWorldSize(&world);
    EXPECT_EQ(world, (DSFloatPair{100.0f, 50.0f}));
}

TEST(KeptImage, IsANewOneForAnotherForm) {
    KeptImage kept;
    EXPECT_EQ(kept.take(kProject, 4, 3, MFIF_RGBA_RAW_32)->width(), 4);
    EXPECT_EQ(kept.take(kProject, 5, 3, MFIF_RGBA_RAW_32)->width(), 5);
    EXPECT_EQ(kept.take(kProject, 5, 2, MFIF_RGBA_RAW_32)->height(), 2);
    EXPECT_EQ(kept.take(kProject, 5, 2, MFIF_RGBA_S2_14)->format(), MFIF_RGBA_S2_14);
    EXPECT_THROW(kept.take(kProject, 0, 2, MFIF_RGBA_S2_14), Error);
}

TEST(KeptImage, IsANewOneAsLongAsSomebodyHoldsTheOld) {
    KeptImage kept;
    const ComPtr<CDSMemoryImage> held = kept.take(kProject, 4, 3, MFIF_RGBA_RAW_32);
    held->bytes()[0] = std::byte{7};
    const auto& next = kept.take(kProject, 4, 3, MFIF_RGBA_RAW_32);
    EXPECT_NE(next.get(), held.get());
    next->bytes()[0] = std::byte{8};
    EXPECT_EQ(held->bytes()[0], std::byte{7});
}

}  // namespace
}  // namespace ruvex::runtime
