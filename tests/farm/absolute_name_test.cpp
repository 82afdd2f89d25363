#include "farm/absolute_name.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

TEST(AbsoluteName, CancelsWhatTheSystemWouldCancel) {
    const files::TempFolder folder;
    const fs::path base = fs::canonical(folder.path());
    fs::create_directories(base / "a/b");
    fs::create_directory_symlink(base / "a/b", base / "link");
    EXPECT_EQ(absoluteName(base / "a/./b//x.mp4"), base / "a/b/x.mp4");
    EXPECT_EQ(absoluteName(base / "a/b/../x.mp4"), base / "a/x.mp4");
    EXPECT_EQ(absoluteName(base / "a/b/../../x.mp4"), base / "x.mp4");
    EXPECT_EQ(absoluteName(base / "link/x.mp4"), base / "link/x.mp4");
    EXPECT_EQ(absoluteName(base / "link/../x.mp4"), base / "link/../x.mp4");
    EXPECT_EQ(absoluteName(base / "link/../../x.mp4"), base / "link/../../x.mp4");
    EXPECT_EQ(absoluteName(base / "a/"), base / "a");
    EXPECT_EQ(absoluteName("/../x"), "/x");
    EXPECT_EQ(absoluteName("x"), fs::current_path() / "x");
}

}  // namespace
}  // namespace ruvex::farm
