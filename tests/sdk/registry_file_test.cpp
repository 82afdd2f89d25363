// The registry in a file: shared between processes, and never half-written.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "sdk/registry/registry.h"
#include "sdk/registry/registry_contents.h"

namespace ruvex::test {
namespace {

namespace fs = std::filesystem;

constexpr GUID kFamily = guidFromText("77A1C004-0000-4000-8000-000000000011");

GUID classNumber(std::uint32_t number) {
    GUID id = guidFromText("77A1C004-0000-4000-8000-000000000001");
    id.Data1 = number;
    return id;
}

DSRegisteredClass entry(std::uint32_t number, std::wstring description = L"words") {
    return {classNumber(number), number, std::move(description), "/modules/V_Ruvex.so"};
}

class RegistryFile : public ::testing::Test {
protected:
    RegistryFile() {
        const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name() +
                                 std::to_string(getpid());
        folder = fs::path(::testing::TempDir()) / name;
        fs::create_directories(folder);
    }
    ~RegistryFile() override { fs::remove_all(folder); }

    void write(const std::string& text) const { std::ofstream(file()) << text; }
    fs::path file() const { return folder / "deep" / "registry"; }
    std::shared_ptr<DSRegistryStore> open() const { return DSFileRegistry(file()); }

    DSRegistryContents contents() const {
        DSRegistryContents all;
        EXPECT_EQ(open()->read(all), S_OK);
        return all;
    }

    fs::path folder;
};

TEST_F(RegistryFile, IsReadBackByAnother) {
    const std::wstring text = L"tab\there, line\nend, back\\slash, \u00FCber, \U0001F4FA";
    EXPECT_TRUE(contents().empty());
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_EQ(open()->addClass(entry(1, text)), S_OK);
    EXPECT_EQ(open()->addClass(entry(2, L"")), S_OK);
    const DSRegisteredFamily family{classNumber(1), kFamily, 7, text};
    EXPECT_EQ(open()->addFamilies({&family, 1}), S_OK);
    const DSRegistryContents expected{{entry(1, text), entry(2, L"")}, {family}};
    EXPECT_EQ(contents(), expected);
}

TEST_F(RegistryFile, IsGoneWhenNothingIsRegistered) {
    open()->addClass(entry(1));
    EXPECT_TRUE(fs::exists(file()));
    EXPECT_EQ(open()->removeClass(classNumber(2)), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(open()->removeClass(classNumber(1)), S_OK);
    EXPECT_TRUE(fs::is_empty(file().parent_path())) << "no file and no scratch file is left";
    const GUID families[] = {kFamily};
    EXPECT_EQ(open()->removeFamilies(classNumber(1), families), REGDB_E_CLASSNOTREG);
}

TEST_F(RegistryFile, OneThatIsDamagedIsRefusedAndKept) {
    open()->addClass(entry(1));
    for (const char* text :
         {"", "V_Ruvex registry 2\n", "V_Ruvex registry 1\nclass\n",
          "V_Ruvex registry 1\nclass\tno\t2\ta\tb\n",
          "V_Ruvex registry 1\nfamily\t77A1C004-0000-4000-8000-000000000001\n",
          "V_Ruvex registry 1\nclass\t77A1C004-0000-4000-8000-000000000001\t2x\ta\tb\n",
          "V_Ruvex registry 1\nclass\t77A1C004-0000-4000-8000-000000000001\t2\t\\a\tb\n",
          "V_Ruvex registry 1\nclass\t77A1C004-0000-4000-8000-000000000001\t2\ta\tb",
          // Each with another form of what is written.
          "V_Ruvex registry 1\nclass\t77a1c004-0000-4000-8000-000000000001\t2\ta\tb\n",
          "V_Ruvex registry 1\nclass\t77A1C004-0000-4000-8000-000000000001\t02\ta\tb\n",
          "V_Ruvex registry 1\nclass\t77A1C004-0000-4000-8000-000000000001\t2\t\xFF\tb\n"}) {
        write(text);
        DSRegistryContents all{{entry(3)}, {}};
        EXPECT_EQ(open()->read(all), REGDB_E_INVALIDVALUE) << text;
        EXPECT_EQ(all.classes.size(), 1u) << "left as it was";
        EXPECT_EQ(open()->addClass(entry(2)), REGDB_E_INVALIDVALUE) << text;
        std::ifstream in(file());
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), text);
    }
}

TEST_F(RegistryFile, TextThatIsCutOffAnywhereIsRefused) {
    const DSRegisteredFamily family{classNumber(1), kFamily, 7, L"name"};
    const std::string whole = registryText({{entry(1)}, {family}});
    ASSERT_TRUE(parseRegistry(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto parsed = parseRegistry(whole.substr(0, length));
        if (length > 0 && whole[length - 1] == '\n') continue;  // a shorter registry, whole lines
        EXPECT_FALSE(parsed) << length;
    }
}

TEST_F(RegistryFile, APlaceThatCannotBeWrittenIsSaid) {
    std::ofstream(folder / "deep") << "a file where a folder has to be";
    EXPECT_EQ(open()->addClass(entry(1)), REGDB_E_WRITEREGDB);
    EXPECT_TRUE(contents().empty());
    const auto onAFolder = DSFileRegistry(folder);
    DSRegistryContents all;
    EXPECT_EQ(onAFolder->read(all), REGDB_E_READREGDB);
}

TEST_F(RegistryFile, ProcessesTakeTurns) {
    constexpr std::uint32_t kProcesses = 4;
    constexpr std::uint32_t kEntries = 25;
    std::vector<pid_t> children;
    for (std::uint32_t p = 0; p < kProcesses; ++p) {
        const pid_t child = fork();
        if (child == 0) {
            bool good = true;
            for (std::uint32_t i = 0; i < kEntries; ++i) {
                good = good && open()->addClass(entry(p * kEntries + i)) == S_OK;
            }
            _exit(good ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(contents().classes.size(), kProcesses * kEntries) << "no entry was lost";
}

TEST_F(RegistryFile, TheSystemsIsTheOneThatIsNamed) {
    setenv("RUVEX_REGISTRY", file().c_str(), 1);
    EXPECT_EQ(DSSystemRegistry()->addClass(entry(5)), S_OK);
    unsetenv("RUVEX_REGISTRY");
    EXPECT_EQ(contents().classes.size(), 1u);
}

TEST_F(RegistryFile, WithoutANameItLiesInTheUsersDataFolder) {
    unsetenv("RUVEX_REGISTRY");
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
    EXPECT_EQ(DSSystemRegistry()->addClass(entry(5)), S_OK);
    unsetenv("XDG_DATA_HOME");
    EXPECT_TRUE(fs::exists(folder / "ruvex" / "registry"));
}

}  // namespace
}  // namespace ruvex::test
