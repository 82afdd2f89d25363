#include "files/partial_file.h"

#include <chrono>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "files/file_error.h"
#include "files/numbered_path.h"
#include "files/read_file.h"
#include "files/whole_file.h"
#include "tests/support/temp_folder.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& text) {
    writeWhole(file, std::as_bytes(std::span(text)));
}

/// A file that is old enough to count as abandoned.
void makeOld(const fs::path& file) {
    std::ofstream(file) << "x";
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

/// The longest name that usual file systems take.
constexpr std::size_t kLongestName = 255;

std::string longName(const std::string& front, const std::string& letter, const std::string& end) {
    std::string name = front;
    while (name.size() + letter.size() + end.size() <= kLongestName) name += letter;
    return name + end;
}

/// Whether `task` succeeds in a process that has not the rights of the superuser.
bool succeedsWithoutRights(const std::function<void()>& task) {
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        if (geteuid() == 0 && setuid(kNobody) != 0) _exit(2);
        try {
            task();
            _exit(0);
        } catch (const FileError&) {
            _exit(1);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2);
    return WEXITSTATUS(status) == 0;
}

TEST(PartialFile, GetsItsNameAtTheCommitAlone) {
    const TempFolder folder;
    {
        PartialFile file(folder.file("result"));
        file.write(std::as_bytes(std::span("new", 3)));
        EXPECT_FALSE(fs::exists(folder.file("result")));
    }
    EXPECT_TRUE(folder.names().empty());
    PartialFile file(folder.file("result"));
    file.write(std::as_bytes(std::span("new", 3)));
    file.commit();
    EXPECT_EQ(readText(folder.file("result")), "new");
}

TEST(PartialFile, PassesNamesThatAProcessOfThisNumberHasLeft) {
    const TempFolder folder;
    const fs::path final = folder.file("out.png");
    std::string name = PartialFile(final).path().filename().string();
    const auto end = name.rfind('-') + 1;
    const int count = std::stoi(name.substr(end));
    for (int next = 1; next <= 3; ++next) {
        makeOld(folder.file(name.substr(0, end) + std::to_string(count + next)));
    }
    PartialFile file(final);
    EXPECT_EQ(file.path().filename(), name.substr(0, end) + std::to_string(count + 4));
    file.commit();
    EXPECT_EQ(folder.names().size(), 4u);
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

TEST(PartialFile, IsWrittenThroughALink) {
    const TempFolder folder;
    fs::create_directory(folder.file("other"));
    write(folder.file("other/target"), "old");
    fs::create_symlink("other/target", folder.file("relative"));
    fs::create_symlink(folder.file("relative"), folder.file("link"));
    write(folder.file("link"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_TRUE(fs::is_symlink(folder.file("relative")));
    EXPECT_FALSE(fs::is_symlink(folder.file("other/target")));
    EXPECT_EQ(readText(folder.file("other/target")), "new");
}

TEST(PartialFile, MakesTheFileThatALinkLeadsTo) {
    const TempFolder folder;
    fs::create_symlink("target", folder.file("link"));
    write(folder.file("link"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_EQ(readText(folder.file("target")), "new");
}

TEST(PartialFile, RefusesLinksThatLeadNowhere) {
    const TempFolder folder;
    fs::create_symlink("b", folder.file("a"));
    fs::create_symlink("a", folder.file("b"));
    fs::create_symlink("none/file", folder.file("c"));
    fs::create_symlink("/dev/null", folder.file("d"));
    for (const char* name : {"a", "c", "d"}) {
        EXPECT_THROW(write(folder.file(name), "new"), FileError) << name;
        EXPECT_TRUE(fs::is_symlink(folder.file(name))) << name;
    }
    EXPECT_EQ(folder.names().size(), 4u);
}

TEST(PartialFile, DoesNotReplaceAFileThatMayNotBeWritten) {
    const TempFolder folder;
    write(folder.file("file"), "old");
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(folder.file("file"), fs::perms::owner_read | fs::perms::others_read);
    EXPECT_FALSE(succeedsWithoutRights([&] { write(folder.file("file"), "new"); }));
    EXPECT_TRUE(succeedsWithoutRights([&] { write(folder.file("another"), "new"); }));
    EXPECT_EQ(readText(folder.file("file")), "old");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"another", "file"}));
}

TEST(PartialFile, TakesOverThePermissions) {
    const TempFolder folder;
    write(folder.file("file"), "old");
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_exec;
    fs::permissions(folder.file("file"), mode);
    write(folder.file("file"), "new");
    EXPECT_EQ(fs::status(folder.file("file")).permissions(), mode);
}

TEST(PartialFile, CanHaveTheLongestName) {
    const TempFolder folder;
    for (const std::string& name : {longName("a", "b", ".png"), longName("", "\u4e2d", ".png"),
                                    longName("", "x", "y"), longName("", "x", "z")}) {
        write(folder.file(name), name);
    }
    EXPECT_EQ(folder.names().size(), 4u);
    for (const std::string& name : folder.names()) {
        EXPECT_EQ(readText(folder.file(name)), name);
    }
}

TEST(RemoveAbandoned, KnowsNamesThatWereCut) {
    const TempFolder folder;
    const std::string name = longName("", "x", "%d.png");
    fs::path partial;
    {
        const PartialFile file(NumberedPath(folder.file(name)).file(7));
        partial = file.path();
    }
    makeOld(partial);
    for (const std::string& other : {longName("", "x", ".png"), longName("y", "x", "%d.png")}) {
        removeAbandoned(folder.file(other));
        EXPECT_TRUE(fs::exists(partial)) << other;
    }
    removeAbandoned(folder.file(name));
    EXPECT_FALSE(fs::exists(partial));
    makeOld(partial);
    removeAbandoned(NumberedPath(folder.file(name)).file(7));
    EXPECT_FALSE(fs::exists(partial));
}

TEST(RemoveAbandoned, LooksBesideTheFileThatALinkLeadsTo) {
    const TempFolder folder;
    fs::create_directory(folder.file("other"));
    fs::create_symlink("other/a%d", folder.file("link"));
    makeOld(folder.file("other/.a%d.partial-1-0"));
    makeOld(folder.file("other/.a7.partial-1-0"));
    removeAbandoned(folder.file("link"));
    EXPECT_FALSE(fs::exists(folder.file("other/.a%d.partial-1-0")));
    EXPECT_TRUE(fs::exists(folder.file("other/.a7.partial-1-0")));
}

}  // namespace
}  // namespace ruvex::files
