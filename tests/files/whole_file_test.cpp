#include "files/whole_file.h"

#include <gtest/gtest.h>

#include "files/file_error.h"
#include "files/read_file.h"
#include "tests/support/temp_folder.h"

namespace ruvex::files {
namespace {

std::span<const std::byte> bytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
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

TEST(FolderOf, IsNeverEmpty) {
    EXPECT_EQ(folderOf("a/b"), "a");
    EXPECT_EQ(folderOf("b"), ".");
    EXPECT_EQ(folderOf("/b"), "/");
}

}  // namespace
}  // namespace ruvex::files
