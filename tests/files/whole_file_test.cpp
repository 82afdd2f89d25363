#include "files/whole_file.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>

#include "files/file_error.h"
#include "files/partial_file.h"
#include "tests/support/temp_folder.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

std::span<const std::byte> bytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

/// A file that is old enough to count as abandoned.
void makeOld(const fs::path& file) {
    std::ofstream(file) << "x";
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

TEST(WholeFile, IsReadBackAsWritten) {
    const TempFolder folder;
    for (const std::string& text :
         {std::string(), std::string("a\0b", 3), std::string(200000, 'x')}) {
        writeWhole(folder.file("file"), bytesOf(text));
        EXPECT_EQ(readText(folder.file("file")), text);
        EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
    }
}

TEST(WholeFile, OfMoreThanTheLimitIsRefused) {
    const TempFolder folder;
    writeWhole(folder.file("file"), bytesOf(std::string(100, 'x')));
    EXPECT_EQ(readText(folder.file("file"), 100).size(), 100u);
    EXPECT_THROW(readText(folder.file("file"), 99), FileError);
    EXPECT_THROW(readText(folder.file("none")), FileError);
    EXPECT_THROW(readText(folder.path()), FileError);
}

TEST(PartialFile, GetsItsNameAtTheCommitAlone) {
    const TempFolder folder;
    {
        PartialFile file(folder.file("result"));
        file.write(bytesOf("new"));
        EXPECT_FALSE(fs::exists(folder.file("result")));
    }
    EXPECT_TRUE(folder.names().empty());
    PartialFile file(folder.file("result"));
    file.write(bytesOf("new"));
    file.commit();
    EXPECT_EQ(readText(folder.file("result")), "new");
}

TEST(PartialFile, TakesThePlaceOfFilesOnly) {
    const TempFolder folder;
    fs::create_directory(folder.file("result"));
    EXPECT_THROW(PartialFile(folder.file("result")), FileError);
    EXPECT_THROW(PartialFile(folder.file("none/result")), FileError);
}

TEST(RemoveAbandoned, TakesTheTemporaryFilesOfThisResultAlone) {
    const TempFolder folder;
    for (const char* name : {".out.png.partial-1-0", ".out.7.png.partial-1-0", ".partial-1-0",
                             ".other.partial-1-0", "out.png", "notes"}) {
        makeOld(folder.file(name));
    }
    removeAbandoned(folder.path() / "");
    EXPECT_EQ(folder.names().size(), 6u);
    removeAbandoned(folder.file("out.png"));
    EXPECT_FALSE(fs::exists(folder.file(".out.png.partial-1-0")));
    EXPECT_EQ(folder.names().size(), 5u);
    removeAbandoned(folder.file("out.%d.png"));
    EXPECT_FALSE(fs::exists(folder.file(".out.7.png.partial-1-0")));
    EXPECT_EQ(folder.names().size(), 4u);
}

TEST(RemoveAbandoned, LeavesFilesThatAreStillWritten) {
    const TempFolder folder;
    const PartialFile file(folder.file("result"));
    fs::last_write_time(file.path(), fs::file_time_type::clock::now() - std::chrono::hours(1));
    removeAbandoned(folder.file("result"));
    EXPECT_TRUE(fs::exists(file.path()));
}

TEST(FolderOf, IsNeverEmpty) {
    EXPECT_EQ(folderOf("a/b"), "a");
    EXPECT_EQ(folderOf("b"), ".");
    EXPECT_EQ(folderOf("/b"), "/");
}

}  // namespace
}  // namespace ruvex::files
