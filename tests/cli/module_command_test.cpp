// `ruvex module`, as a person and as a program runs it.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "parameters/parameter_table.h"
#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

/// A registry of its own, for the commands that the test runs.
class ModuleCommand : public ::testing::Test {
protected:
    ModuleCommand() { setenv("RUVEX_REGISTRY", registry().c_str(), 1); }
    ~ModuleCommand() override { unsetenv("RUVEX_REGISTRY"); }

    fs::path registry() const { return folder.path() / "registry"; }
    std::string registered() const {
        std::ifstream in(registry());
        return {std::istreambuf_iterator<char>(in), {}};
    }

    files::TempFolder folder;
};

TEST_F(ModuleCommand, ListsClassesFamiliesFormatsAndParameters) {
    const Outcome outcome = ruvex({"module"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    for (const char* part :
         {"V_Ruvex: Osterlin's Ruvex Effect\n",
          "\nA41E7F12-37AB-48B5-99C9-C4B83402C0FC  yes   2       Osterlin's Ruvex Effect\n",
          "\nFF17B06D-625E-467E-8781-A656F61FC4DF  yes   4       V_Ruvex's main PPG\n",
          "\n6EBC28D8-0306-446E-9285-F5BF7111D075  yes   1178\n",
          "\n633BF221-759B-4B4A-B863-64706872769D  yes   16      V_Ruvex's help PPG\n",
          "\n95F7E8A0-8B84-11D1-94A3-00A0C911C625  1        V_Ruvex\n", "MFIF_RGBA_RAW_32",
          "MFIF_RGBA_S2_14", "Master Breakup\n"}) {
        EXPECT_TRUE(holds(outcome.out, part)) << part << outcome.out;
    }
    EXPECT_FALSE(holds(outcome.out, "MFIF_A_RAW_8"));
    EXPECT_FALSE(fs::exists(registry())) << "to look is not to register";
}

TEST_F(ModuleCommand, SaysTheSameToPrograms) {
    const Outcome outcome = ruvex({"module", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const auto report = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(report["classes"].size(), 10u);
    EXPECT_EQ(report["classes"][0]["made"], true);
    EXPECT_EQ(report["families"].size(), 4u);
    EXPECT_EQ(report["formats"].size(), 2u);
    ASSERT_EQ(report["parameters"].size(), parameterTable().size());
    for (std::size_t i = 0; i < parameterTable().size(); ++i) {
        EXPECT_EQ(report["parameters"][i]["id"], toText(parameterTable()[i].identifier));
        EXPECT_EQ(report["parameters"][i]["animated"], isReal(parameterTable()[i].kind));
    }
}

TEST_F(ModuleCommand, RegistersAndUnregisters) {
    EXPECT_EQ(ruvex({"module", "--register"}).status, 0);
    EXPECT_TRUE(holds(registered(), "\nclass\tA41E7F12-37AB-48B5-99C9-C4B83402C0FC\t2\t"));
    EXPECT_EQ(ruvex({"module", "--unregister"}).status, 0);
    EXPECT_FALSE(fs::exists(registry()));
    const Outcome again = ruvex({"module", "--unregister"});
    EXPECT_EQ(again.status, 1);
    EXPECT_TRUE(holds(again.err, "not registered")) << again.err;
}

TEST_F(ModuleCommand, ADamagedRegistryIsNamedAndKept) {
    std::ofstream(registry()) << "something else\n";
    const Outcome outcome = ruvex({"module", "--register"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "damaged")) << outcome.err;
    EXPECT_EQ(registered(), "something else\n");
}

TEST_F(ModuleCommand, OneThingAtATime) {
    EXPECT_EQ(ruvex({"module", "--register", "--unregister"}).status, 2);
    EXPECT_EQ(ruvex({"module", "--register", "--json"}).status, 2);
}

}  // namespace
}  // namespace ruvex::cli
