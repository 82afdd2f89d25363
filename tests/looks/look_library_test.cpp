#include "looks/look_library.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "files/file_error.h"
#include "looks/look_file.h"
#include "looks/look_writing.h"
#include "looks/presets.h"
#include "parameters/presets.h"
#include "tests/support/temp_folder.h"

namespace ruvex::looks {
namespace {

namespace fs = std::filesystem;

/// Two folders of looks, both empty at first.
struct Library : testing::Test {
    Library() {
        fs::create_directory(folders.user);
        fs::create_directory(folders.shipped);
    }
    static void write(const fs::path& file, const std::string& text) {
        std::ofstream(file) << text;
    }
    static std::string seed(int value, const std::string& more = "") {
        return "{" + more + "\"Seed\": " + std::to_string(value) + "}";
    }
    static double seedOf(const LibraryLook& look) {
        return std::get<Setting>(look.look.changes.at(0)).value;
    }
    double seedOf(const std::string& name) const { return seedOf(readLook(name, folders)); }

    std::vector<std::string> ownNames() const {
        std::vector<std::string> names;
        for (const LibraryLook& look : readLookLibrary(folders).looks) {
            if (look.group != LookGroup::Preset) names.push_back(look.look.name);
        }
        return names;
    }
    std::string refusal(const std::string& name) const {
        try {
            readLook(name, folders);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }

    files::TempFolder folder;
    LookFolders folders{.shipped = folder.file("shipped"), .user = folder.file("user")};
};

using Names = std::vector<std::string>;

TEST_F(Library, HasThePresetsThenTheShippedLooksThenTheUsersEachByName) {
    write(folders.shipped / "a.json", seed(1, R"("name": "Zebra", )"));
    write(folders.shipped / "b.json", seed(2, R"("name": "Antelope", )"));
    write(folders.user / "Mine.json", seed(3));
    const LookLibrary library = readLookLibrary(folders);
    ASSERT_EQ(library.looks.size(), kPresetCount + 3u);
    for (std::size_t i = 0; i < kPresetCount; ++i) {
        EXPECT_EQ(library.looks[i].group, LookGroup::Preset);
        EXPECT_EQ(library.looks[i].look, presetLook(static_cast<int>(i)));
        EXPECT_EQ(library.looks[i].file, fs::path());
    }
    EXPECT_EQ(ownNames(), (Names{"Antelope", "Zebra", "Mine"}));
    EXPECT_EQ(library.looks.back().group, LookGroup::User);
    EXPECT_EQ(library.looks.back().file, folders.user / "Mine.json");
    EXPECT_EQ(library.problems.size(), 0u);
}

TEST_F(Library, NamesMatchWithoutCaseSpacesAndHyphens) {
    write(folders.shipped / "wet.json", seed(1, R"("name": "Wet-Street Aerial", )"));
    for (const char* name : {"Wet-Street Aerial", "wet street aerial", "WETSTREETAERIAL",
                             "wet-street-aerial", "w-e-t streetaerial"}) {
        EXPECT_EQ(seedOf(name), 1) << name;
    }
    EXPECT_EQ(readLook("bad-colour-tv", folders).look, presetLook(*findPreset("Bad Colour TV")));
    EXPECT_THROW(readLook("-", folders), UnknownLook);
}

TEST_F(Library, AFilesOwnNameFindsItToo) {
    write(folders.user / "my-copy.json", seed(5, R"("name": "Copied", )"));
    write(folders.user / "other.json", seed(6, R"("name": "My Copy", )"));
    EXPECT_EQ(seedOf("copied"), 5);
    EXPECT_EQ(seedOf("my-copy"), 6);  // A look's name has priority.
    EXPECT_EQ(seedOf("other"), 6);
}

TEST_F(Library, AUsersLookReplacesTheShippedOne) {
    write(folders.shipped / "wet.json", seed(1, R"("name": "Wet Street", )"));
    write(folders.user / "anything.json", seed(2, R"("name": "wet-street", )"));
    EXPECT_EQ(seedOf("Wet Street"), 2);
    EXPECT_EQ(ownNames(), Names{"wet-street"});
    EXPECT_EQ(readLookLibrary(folders).problems.size(), 0u);
    EXPECT_EQ(fileOfLook("Wet Street", folders), folders.user / "anything.json");
}

TEST_F(Library, ALookWithThePresetsNameIsReportedAndThePresetStays) {
    write(folders.user / "cable out.json", seed(2));
    const LookLibrary library = readLookLibrary(folders);
    EXPECT_EQ(library.looks.size(), kPresetCount + 0u);
    ASSERT_EQ(library.problems.size(), 1u);
    EXPECT_NE(library.problems[0].sentence.find("a preset has the name"), std::string::npos);
    EXPECT_EQ(readLook("cable out", folders).group, LookGroup::Preset);
    EXPECT_EQ(seedOf((folders.user / "cable out.json").string()), 2);
    EXPECT_EQ(fileOfLook("Cable Out", folders), fs::path());
}

TEST_F(Library, OfTwoOwnLooksWithOneNameTheSecondFileIsReported) {
    write(folders.user / "a.json", seed(1, R"("name": "Same", )"));
    write(folders.user / "b.json", seed(2, R"("name": "same", )"));
    EXPECT_EQ(seedOf("same"), 1);
    const LookLibrary library = readLookLibrary(folders);
    ASSERT_EQ(library.problems.size(), 1u);
    EXPECT_EQ(library.problems[0].file, folders.user / "b.json");
    EXPECT_NE(refusal("b").find("a.json has the name"), std::string::npos) << refusal("b");
}

TEST_F(Library, FilesThatCannotBeUsedAreReportedAndTheOthersStay) {
    write(folders.user / "good.json", seed(4));
    write(folders.user / "cut.json", "{\"Seed\": ");
    write(folders.user / "unknown.json", R"({"Seed of Doubt": 1})");
    write(folders.user / "named.json", R"({"name": 7})");
    write(folders.user / "empty.json", "");
    write(folders.user / "notes.txt", "not a look");
    write(folders.user / ".hidden.json", "{");
    fs::create_directory(folders.user / "folder.json");
    fs::create_symlink("nowhere", folders.user / "lost.json");
    const LookLibrary library = readLookLibrary(folders);
    EXPECT_EQ(ownNames(), Names{"good"});
    EXPECT_EQ(library.problems.size(), 4u);
    for (const LookProblem& problem : library.problems) {
        EXPECT_TRUE(problem.sentence.starts_with(problem.file.string())) << problem.sentence;
    }
    EXPECT_EQ(seedOf("good"), 4);
    // Asked for by name, such a file says what is wrong with it.
    EXPECT_NE(refusal("cut").find("cut.json"), std::string::npos);
    EXPECT_THROW(readLook("unknown", folders), LookFileError);
}

TEST_F(Library, ABrokenOwnLookDoesNotFallBackToTheShippedOne) {
    write(folders.shipped / "wet.json", seed(1));
    write(folders.user / "wet.json", "{");
    EXPECT_THROW(readLook("wet", folders), LookFileError);
    EXPECT_EQ(seedOf((folders.shipped / "wet.json").string()), 1);
}

TEST_F(Library, FoldersThatAreMissingOrFilesHaveNoLooks) {
    EXPECT_EQ(readLookLibrary({}).looks.size(), kPresetCount + 0u);
    EXPECT_EQ(readLookLibrary({.shipped = folder.file("none")}).problems.size(), 0u);
    write(folder.file("file"), "");
    EXPECT_EQ(readLookLibrary({.user = folder.file("file")}).problems.size(), 1u);
}

TEST_F(Library, APathIsReadAsAFileAndANameOnlyIfNoLookHasIt) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    write(folder.file("wet.json"), seed(9));
    write(folder.file("wet"), seed(8));
    write(folder.file("loose"), seed(7));
    write(folders.shipped / "wet.json", seed(1));
    EXPECT_EQ(seedOf("wet"), 1);
    EXPECT_EQ(seedOf("./wet"), 8);
    EXPECT_EQ(seedOf("wet.json"), 9);
    EXPECT_EQ(seedOf("loose"), 7);
    EXPECT_THROW(readLook("none.json", folders), files::FileError);
    EXPECT_THROW(readLook("none/look", folders), files::FileError);
    EXPECT_EQ(fileOfLook("./wet", folders), fs::path("./wet"));
    fs::current_path(before);
}

TEST_F(Library, AnUnknownNameIsRefusedWithASimilarOne) {
    write(folders.shipped / "wet.json", seed(1, R"("name": "Wet Street", )"));
    EXPECT_NE(refusal("wet stret").find("Did you mean 'Wet Street'?"), std::string::npos);
    EXPECT_EQ(refusal("Elephant").find("Did you mean"), std::string::npos);
    EXPECT_THROW(readLook("No such look", folders), UnknownLook);
    EXPECT_THROW(readLook(std::string(300, 'x'), folders), UnknownLook);
    EXPECT_LT(refusal(std::string(300, 'x')).size(), 300u);
}

TEST_F(Library, WarningsComeWithTheLook) {
    write(folders.user / "loud.json", R"({"Resolution": 150})");
    EXPECT_EQ(readLook("loud", folders).warnings.size(), 1u);
}

TEST_F(Library, LooksThatAreWrittenAreReadAgain) {
    write(folders.user / "odd.json", seed(3, R"("name": "Up/Down", )"));
    const LookLibrary library = readLookLibrary(folders);
    writeLookFiles(library.looks, folder.file("written"));
    std::vector<std::string> warnings;
    for (const LibraryLook& look : library.looks) {
        const std::string stem = look.look.name == "Up/Down" ? "Up-Down" : look.look.name;
        EXPECT_EQ(readLookFile(folder.file("written") / (stem + ".json"), warnings), look.look);
    }
    EXPECT_THROW(writeLookFiles(library.looks, folders.user / "odd.json"), files::FileError);
}

TEST(LookFolders, TheShippedOneBelongsToAFile) {
    for (const char* place : {"bin/looks", "Resources/looks", "share/ruvex/looks"}) {
        const files::TempFolder folder;
        const fs::path file = folder.path() / "bin" / "program";
        EXPECT_EQ(shippedLookFolder(file), fs::path());
        fs::create_directories(folder.path() / place);
        EXPECT_EQ(shippedLookFolder(file), folder.path() / place);
    }
}

TEST(LookFolders, TheUsersIsInTheDataFolder) {
    const files::TempFolder folder;
    const char* before = std::getenv("XDG_DATA_HOME");
    const std::string kept = before != nullptr ? before : "";
    setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    EXPECT_EQ(lookFolders().user, folder.path() / "ruvex" / "looks");
    setenv("XDG_DATA_HOME", "relative", 1);
    if (const char* home = std::getenv("HOME")) {
        EXPECT_EQ(lookFolders().user, fs::path(home) / ".local" / "share" / "ruvex" / "looks");
    }
    before != nullptr ? setenv("XDG_DATA_HOME", kept.c_str(), 1) : unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace ruvex::looks
