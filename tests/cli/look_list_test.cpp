// `ruvex presets`, and looks by their names.

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "looks/look_file.h"
#include "parameters/presets.h"
#include "tests/cli/own_looks.h"
#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> all;
    for (std::string line; std::getline(stream, line);) all.push_back(line);
    return all;
}

TEST(LookList, HasPresetsThenLooksThenTheUsersOwnWithWhatTheyAreFor) {
    const OwnLooks own;
    own.write("mine.json", R"({"name": "Mine", "description": "for the pub scene"})");
    own.write("plain.json", "{}");
    const Outcome outcome = ruvex({"presets"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::size_t presets = outcome.out.find("Presets of the effect\n  Good TV: ");
    const std::size_t looks = outcome.out.find("\n\nLooks\n");
    const std::size_t users = outcome.out.find("\n\nYour own looks, in " + own.folder().string() +
                                               "\n  Mine: for the pub scene\n  plain\n");
    EXPECT_EQ(presets, 0u) << outcome.out;
    EXPECT_NE(looks, std::string::npos) << outcome.out;
    EXPECT_NE(users, std::string::npos) << outcome.out;
    EXPECT_LT(looks, users);
    EXPECT_TRUE(holds(outcome.out, "\n  Security Camera: grey and soft, 8 frames repeated"));
    EXPECT_TRUE(holds(outcome.out, "\n  Clean: the picture unchanged"));
}

TEST(LookList, NamesAloneAreOneALine) {
    const OwnLooks own;
    const std::vector<std::string> names = linesOf(ruvex({"presets", "--names"}).out);
    ASSERT_GT(names.size(), kPresetCount + 0u);
    for (std::size_t i = 0; i < kPresetCount; ++i) EXPECT_EQ(names[i], presetNames()[i]);
    EXPECT_EQ(linesOf(ruvex({"presets", "--names", "--group", "presets"}).out).size(),
              kPresetCount + 0u);
    EXPECT_EQ(ruvex({"presets", "--names", "--group", "own"}).out, "");
    EXPECT_EQ(ruvex({"presets", "--group", "mine"}).status, 2);
    EXPECT_EQ(ruvex({"presets", "--names", "--json"}).status, 2);
}

TEST(LookList, AsJsonHasAllThatALookSays) {
    const OwnLooks own;
    own.write("mine.json", R"({"name": "Mine", "author": "Me", "Seed": 1,
        "Blur": [{"seconds": 0, "value": 1}], "projectSize": {"width": 64, "height": 48}})");
    const auto list = nlohmann::json::parse(ruvex({"presets", "--json"}).out);
    const auto& first = list.at(0);
    EXPECT_EQ(first["name"], "Good TV");
    EXPECT_EQ(first["group"], "preset");
    EXPECT_EQ(first["file"], nullptr);
    EXPECT_EQ(first["projectSize"], nullptr);
    EXPECT_EQ(first["animated"], false);
    EXPECT_TRUE(first["description"].is_string());
    const auto& last = list.back();
    EXPECT_EQ(last["name"], "Mine");
    EXPECT_EQ(last["group"], "own");
    EXPECT_EQ(last["author"], "Me");
    EXPECT_EQ(last["description"], nullptr);
    EXPECT_EQ(last["file"], (own.folder() / "mine.json").string());
    EXPECT_EQ(last["projectSize"], nlohmann::json::parse(R"({"width": 64, "height": 48})"));
    EXPECT_EQ(last["animated"], true);
}

TEST(LookList, FilesThatCannotBeUsedAreReportedBesideTheOthers) {
    const OwnLooks own;
    own.write("good.json", "{}");
    own.write("bad.json", "{");
    const Outcome outcome = ruvex({"presets"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(holds(outcome.out, "\n  good\n"));
    EXPECT_TRUE(holds(outcome.err, "bad.json: this is not valid JSON")) << outcome.err;
    EXPECT_EQ(ruvex({"level", "--frames", "0-0", "--preset", "good"}).status, 0);
    const Outcome bad = ruvex({"level", "--frames", "0-0", "--preset", "bad"});
    EXPECT_EQ(bad.status, 1);
    EXPECT_TRUE(holds(bad.err, "bad.json: this is not valid JSON")) << bad.err;
}

TEST(LookList, SavesTheChosenGroup) {
    const OwnLooks own;
    own.write("mine.json", R"({"Seed": 77})");
    const files::TempFolder folder;
    const std::string to = folder.file("looks").string();
    EXPECT_EQ(ruvex({"presets", "--group", "own", "--save-to", to}).status, 0);
    std::vector<std::string> warnings;
    const looks::Look saved = looks::readLookFile(folder.file("looks") / "mine.json", warnings);
    EXPECT_EQ(saved.name, "mine");
    EXPECT_EQ(saved.changes.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(folder.file("looks") / "Clean.json"));
    EXPECT_EQ(ruvex({"presets", "--save-to", to}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.file("looks") / "Clean.json"));
    EXPECT_TRUE(std::filesystem::exists(folder.file("looks") / "Cable Out.json"));
}

/// The project frame of the job of a render with these options; "null" where it has none.
std::string projectFrameOf(const Arguments& more) {
    const files::TempFolder folder;
    const std::string job = folder.file("job.json").string();
    std::ofstream(folder.file("in.rgba8")) << std::string(64 * 48 * 4, 'x');
    Arguments arguments = {"render",     folder.file("in.rgba8").string(),
                           "-o",         folder.file("out.rgba8").string(),
                           "--size",     "64x48",
                           "--save-job", job};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Outcome outcome = ruvex(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    std::ifstream file(job);
    return nlohmann::json::parse(file)["projectSize"].dump();
}

TEST(ProjectFrame, IsTheLooksUnlessAnOptionSaysOtherwise) {
    const OwnLooks own;
    own.write("a.json", R"({"projectSize": {"width": 960, "height": 540}})");
    own.write("b.json", R"({"projectSize": {"width": 1440, "height": 1080}})");
    const std::string b = (own.folder() / "b.json").string();
    EXPECT_EQ(projectFrameOf({"--preset", "a"}), R"({"height":540,"width":960})");
    EXPECT_EQ(projectFrameOf({"--preset", "a", "--params", b}), R"({"height":1080,"width":1440})");
    EXPECT_EQ(projectFrameOf({"--preset", "a", "--project-size", "720x576"}),
              R"({"height":576,"width":720})");
    EXPECT_EQ(projectFrameOf({"--preset", "Cable Out"}), "null");
}

TEST(ProjectFrame, IsSavedWithTheParameters) {
    const OwnLooks own;
    own.write("a.json", R"({"projectSize": {"width": 960, "height": 540}})");
    const files::TempFolder folder;
    const std::string saved = folder.file("saved.json").string();
    const auto savedSize = [&](Arguments arguments) {
        arguments.insert(arguments.end(), {"--save-params", saved});
        EXPECT_EQ(ruvex(arguments).status, 0);
        std::vector<std::string> warnings;
        return looks::readLookFile(saved, warnings).projectSize;
    };
    std::ofstream(folder.file("in.rgba8")) << std::string(64 * 48 * 4, 'x');
    const Arguments render = {"render", folder.file("in.rgba8").string(),
                              "-o",     folder.file("out.rgba8").string(),
                              "--size", "64x48"};
    EXPECT_EQ(savedSize(render), std::nullopt);
    Arguments sized = render;
    sized.insert(sized.end(), {"--project-size", "720x576"});
    EXPECT_EQ(savedSize(sized), (looks::ProjectSize{720, 576}));
    EXPECT_EQ(savedSize({"level", "--frames", "0-0", "--preset", "a"}),
              (looks::ProjectSize{960, 540}));
}

TEST(ProjectFrame, ALooksOwnFileIsNotOverwritten) {
    const OwnLooks own;
    own.write("a.json", R"({"Seed": 3})");
    const std::string file = (own.folder() / "a.json").string();
    const files::TempFolder folder;
    std::ofstream(folder.file("in.rgba8")) << std::string(64 * 48 * 4, 'x');
    EXPECT_EQ(
        ruvex({"render", folder.file("in.rgba8").string(), "-o", folder.file("out.rgba8").string(),
               "--size", "64x48", "--preset", "A", "--save-job", file})
            .status,
        2);
}

}  // namespace
}  // namespace ruvex::cli
