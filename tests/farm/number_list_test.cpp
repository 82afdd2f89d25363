#include "farm/number_list.h"

#include <gtest/gtest.h>
#include <vector>

namespace ruvex::farm {
namespace {

std::string listed(const std::vector<std::int64_t>& numbers) {
    return numberList(numbers);
}

TEST(NumberList, JoinsNeighbours) {
    EXPECT_EQ(listed({}), "");
    EXPECT_EQ(listed({5}), "5");
    EXPECT_EQ(listed({0, 1, 2}), "0-2");
    EXPECT_EQ(listed({0, 2, 3, 7, 8, 9, 12}), "0,2-3,7-9,12");
    EXPECT_EQ(numberList(std::vector<std::int64_t>{1, 3}, ", "), "1, 3");
}

}  // namespace
}  // namespace ruvex::farm
