#include "files/file_identity.h"

#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/temp_folder.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

TEST(FileIdentity, IsOneForEverySpelling) {
    const TempFolder folder;
    std::ofstream(folder.file("a")) << "x";
    std::ofstream(folder.file("b")) << "x";
    fs::create_symlink("a", folder.file("link"));
    fs::create_hard_link(folder.file("a"), folder.file("hard"));
    fs::create_directory_symlink(folder.path(), folder.file("here"));
    const auto identity = identityOf(folder.file("a"));
    ASSERT_TRUE(identity);
    for (const char* name : {"./a", "link", "hard", "here/a", "here/./here/a"}) {
        EXPECT_EQ(identityOf(folder.file(name)), identity) << name;
    }
    EXPECT_EQ(identityOf(fs::relative(folder.file("a"))), identity);
    EXPECT_NE(identityOf(folder.file("b")), identity);
}

TEST(FileIdentity, IsOfRegularFilesAlone) {
    const TempFolder folder;
    for (const fs::path& path :
         {folder.path(), folder.file("none"), fs::path("/dev/null"), fs::path("-"), fs::path()}) {
        EXPECT_FALSE(identityOf(path)) << path;
    }
}

TEST(FileIdentity, OfADescriptorIsThatOfItsFile) {
    const TempFolder folder;
    std::ofstream(folder.file("a")) << "x";
    const int descriptor = open(folder.file("a").c_str(), O_RDONLY);
    EXPECT_EQ(identityOf(descriptor), identityOf(folder.file("a")));
    close(descriptor);
    EXPECT_FALSE(identityOf(descriptor));
}

}  // namespace
}  // namespace ruvex::files
