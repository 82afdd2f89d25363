#include "imaging/memory_advice.h"

#include <gtest/gtest.h>
#include <vector>

namespace ruvex {
namespace {

TEST(MemoryAdvice, LeavesWhatIsThereWhateverTheRange) {
    std::vector<unsigned char> memory(std::size_t{9} << 20, 0xA5);
    const std::vector<unsigned char> before = memory;
    for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, std::size_t{5} << 20}) {
        adviseLargePages(memory.data() + 12345, bytes);
    }
    adviseLargePages(memory.data(), memory.size());
    EXPECT_EQ(memory, before);
}

}  // namespace
}  // namespace ruvex
