#include "runtime/project.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "runtime/error.h"

namespace ruvex::runtime {
namespace {

std::string complaint(const Project& project) {
    try {
        checkProject(project);
        return "";
    } catch (const Error& error) {
        return error.what();
    }
}

TEST(Project, WorldYIsUserYOverThePixelAspect) {
    const DSContent expected = {{L"Project Frame User Size (X)", 720.0},
                                {L"Project Frame User Size (Y)", 576.0},
                                {L"Project Frame World Size (X)", 720.0},
                                {L"Project Frame World Size (Y)", 576.0 / 1.0667}};
    EXPECT_EQ(contentOf({720, 576, 1.0667, 25.0}), expected);
}

TEST(Project, NamesTheFieldThatIsWrong) {
    EXPECT_EQ(complaint({1, 1, 1.0, 1.0}), "");
    EXPECT_THAT(complaint({0, 10, 1.0, 25.0}), ::testing::HasSubstr("0x10"));
    EXPECT_THAT(complaint({10, -1, 1.0, 25.0}), ::testing::HasSubstr("10x-1"));
    EXPECT_THAT(complaint({10, 10, 0.0, 25.0}), ::testing::HasSubstr("aspect"));
    EXPECT_THAT(complaint({10, 10, 1.0, -25.0}), ::testing::HasSubstr("rate"));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(complaint({10, 10, nan, 25.0}), ::testing::HasSubstr("aspect"));
    EXPECT_THAT(complaint({10, 10, 1.0, nan}), ::testing::HasSubstr("rate"));
    EXPECT_THROW(contentOf({0, 0, 1.0, 25.0}), Error);
}

}  // namespace
}  // namespace ruvex::runtime
