#include "files/numbered_path.h"

#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace ruvex::files {
namespace {

void touch(const TempFolder& folder, const std::string& name) {
    std::ofstream(folder.file(name)) << "x";
}

TEST(NumberedPath, PutsTheNumberIntoTheName) {
    EXPECT_EQ(NumberedPath("a/shot.%05d.png").file(7), "a/shot.00007.png");
    EXPECT_EQ(NumberedPath("a/shot.%05d.png").file(123456), "a/shot.123456.png");
    EXPECT_EQ(NumberedPath("%d.s214").file(12), "12.s214");
    EXPECT_EQ(NumberedPath("50%_%03d.png").file(12), "50%_012.png");
    EXPECT_TRUE(NumberedPath("%d.s214").isPattern());
}

TEST(NumberedPath, OtherNamesAreTakenAsTheyAre) {
    for (const char* name : {"a.png", "100%.png", "%5d.png", "%x.png", "%00d.png", "%019d.png", "%",
                             "%0", "%03", "%-3d", "dir%d/a.png"}) {
        EXPECT_FALSE(NumberedPath(name).isPattern()) << name;
        EXPECT_EQ(NumberedPath(name).file(7), name);
    }
}

TEST(NumberedPath, DoubledPercentSignsStandForOne) {
    const auto plain = [](const char* path) {
        EXPECT_FALSE(NumberedPath(path).isPattern()) << path;
        return NumberedPath(path).file(7);
    };
    EXPECT_EQ(plain("dir/a%%d.png"), "dir/a%d.png");
    EXPECT_EQ(plain("a%%03d.png"), "a%03d.png");
    EXPECT_EQ(plain("a%%%%d.png"), "a%%d.png");
    EXPECT_EQ(plain("100%%.png"), "100%%.png");
    EXPECT_EQ(plain("a%%b%%00d.png"), "a%%b%%00d.png");
    EXPECT_EQ(NumberedPath("a%%%d.png").file(7), "a%7.png");
    EXPECT_EQ(NumberedPath("%%d.%d.%%d").file(7), "%d.7.%d");
    EXPECT_EQ(NumberedPath("%d.%d").file(7), "7.%d");
    EXPECT_EQ(NumberedPath("%%d.%02d").plain(), "%d.%02d");
    EXPECT_TRUE(NumberedPath("%%d").fits("%d"));
    EXPECT_TRUE(NumberedPath("%%d.%d").fits("%d.3"));
}

TEST(NumberedPath, AnyFileCanBeNamed) {
    for (const char* name :
         {"a.png", "a%d.png", "%%d", "%%%05d%d", "100%", "%%", "50%%_%0d", "a/%d"}) {
        const NumberedPath path(asNumberedPath(name));
        EXPECT_FALSE(path.isPattern()) << name;
        EXPECT_EQ(path.plain(), name);
    }
}

TEST(NumberedPath, FindsAFileWithAFieldInItsName) {
    TempFolder folder;
    touch(folder, "a%d.png");
    EXPECT_TRUE(NumberedPath(folder.file("a%%d.png")).existing());
    EXPECT_FALSE(NumberedPath(folder.file("a%d.png")).existing());
}

TEST(NumberedPath, FindsFirstAndLast) {
    TempFolder folder;
    for (const char* name :
         {"s.00009.png", "s.00012.png", "s.100000.png", "s.7.png", "s.000013.png", "s.-0001.png",
          "s.00001.jpg", "ts.00001.png", "s.0000x.png", "s..png"}) {
        touch(folder, name);
    }
    const auto range = NumberedPath(folder.file("s.%05d.png")).existing();
    ASSERT_TRUE(range);
    EXPECT_EQ(range->first, 9);
    EXPECT_EQ(range->last, 100000);
    const auto plain = NumberedPath(folder.file("s.%d.png")).existing();
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->first, 7);
    EXPECT_EQ(plain->last, 100000);
}

TEST(NumberedPath, NothingWhereNoFileFits) {
    TempFolder folder;
    EXPECT_FALSE(NumberedPath(folder.file("s.%05d.png")).existing());
    EXPECT_FALSE(NumberedPath(folder.file("none/s.%d.png")).existing());
    EXPECT_FALSE(NumberedPath(folder.file("s.png")).existing());
}

}  // namespace
}  // namespace ruvex::files
