#include "farm/fresh_folder.h"

#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

TEST(FreshFolder, IsChangedAndHoldsNothingNew) {
    const files::TempFolder folder;
    std::ofstream(folder.file("a")) << "a";
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(folder.path(), longAgo);
    refreshFolder(folder.path());
    EXPECT_GT(fs::last_write_time(folder.path()), longAgo);
    EXPECT_EQ(namesIn(folder.path()), std::unordered_set<std::string>{"a"});
}

TEST(FreshFolder, ThatIsNotThereIsNoError) {
    refreshFolder("/no/such/folder");
    EXPECT_TRUE(namesIn("/no/such/folder").empty());
}

}  // namespace
}  // namespace ruvex::farm
