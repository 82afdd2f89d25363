#include "imaging/kept_buffer.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace ruvex {
namespace {

TEST(KeptBuffer, IsUsedAgainAtSizesNearItsOwn) {
    KeptBuffer kept;
    std::byte* const first = kept.reserve(4096);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(first) % 64, 0u);
    EXPECT_EQ(kept.reserve(4096), first);
    EXPECT_EQ(kept.reserve(2048), first);
    EXPECT_EQ(kept.reserve(4095), first);
}

TEST(KeptBuffer, IsReplacedIfTooSmallOrFarTooLarge) {
    KeptBuffer kept;
    for (const std::int32_t bytes : {100, 101, 1 << 20, 1 << 10, 1, 64}) {
        std::byte* const memory = kept.reserve(bytes);
        ASSERT_NE(memory, nullptr);
        // The sanitizer sees whether all of it is there.
        memory[0] = memory[bytes - 1] = std::byte{1};
    }
}

TEST(KeptBuffer, GivesNothingForNoBytes) {
    KeptBuffer kept;
    EXPECT_EQ(kept.reserve(0), nullptr);
    EXPECT_EQ(kept.reserve(-1), nullptr);
    EXPECT_NE(kept.reserve(1), nullptr);
    EXPECT_EQ(kept.reserve(0), nullptr);
}

}  // namespace
}  // namespace ruvex
