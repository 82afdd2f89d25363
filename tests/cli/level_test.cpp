#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "media/stills/raw_frame.h"
#include "parameters/artefacts.h"
#include "parameters/parameter_table.h"
#include "tests/cli/csv_table.h"
#include "tests/cli/xml_check.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using files::TempFolder;

Outcome level(Arguments arguments) {
    arguments.insert(arguments.begin(), "level");
    return ruvex(arguments);
}

CsvTable values(Arguments arguments) {
    arguments.push_back("--csv");
    const Outcome outcome = level(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return readCsv(outcome.out);
}

std::vector<double> numbers(const std::vector<std::string>& texts) {
    std::vector<double> result;
    for (const std::string& text : texts) {
        result.push_back(std::stod(text));
    }
    return result;
}

// The names of the artefacts' columns are frozen with their table.
TEST(Level, TheNamesOfTheColumnsStay) {
    std::string amounts;
    for (const Artefact& artefact : artefacts()) {
        amounts.append(artefact.amountName).append(",");
    }
    const std::string out = level({"--frames", "0-0", "--csv"}).out;
    EXPECT_EQ(out.substr(0, out.find('\n')),
              "frame,time,play_time,source_frame,shown_frame,level," + amounts +
                  "line_travel,vertical_sum,shash_frames");
}

TEST(Level, FramesStandAtTheirTimes) {
    const CsvTable table = values({"--frames", "3-5", "--rate", "4"});
    EXPECT_EQ(table.at("frame"), (std::vector<std::string>{"3", "4", "5"}));
    EXPECT_EQ(table.at("time"), (std::vector<std::string>{"0.75", "1", "1.25"}));
    EXPECT_EQ(table.at("play_time"), table.at("time"));
    EXPECT_EQ(table.at("source_frame"), table.at("frame"));
    EXPECT_EQ(table.at("shown_frame"), table.at("frame"));
    EXPECT_EQ(values({"--frames", "1-1"}).at("time")[0], "0.04") << "the usual rate is 25";
}

TEST(Level, WithoutVariationIsMasterBreakupExactly) {
    const CsvTable table = values({"--frames", "0-20", "--set", "Breakup Variation=0"});
    for (const std::string& each : table.at("level")) {
        EXPECT_EQ(each, "0.5");
    }
}

TEST(Level, AmountsRampFromTheirThresholds) {
    const CsvTable table = values({"--frames", "1-1", "--set", "Breakup Variation=0"});
    const auto amount = [&](const char* name) { return std::stod(table.at(name)[0]); };
    // (level - threshold) * max / (1 - threshold), with the defaults.
    EXPECT_NEAR(amount("ghost_distance"), 0.3 * 50 / 0.8, 1e-4);
    EXPECT_NEAR(amount("edge_distortion"), 0.1 * 100 / 0.6, 1e-4);
    EXPECT_NEAR(amount("snow"), 0.5 * 0.6, 1e-6);
    // A level of just the threshold gives nothing, and so does one below.
    EXPECT_EQ(table.at("colour_degrade")[0], "0");
    EXPECT_EQ(table.at("line_speed")[0], "0");
    EXPECT_EQ(table.at("vertical_offset")[0], "0");
    EXPECT_EQ(table.at("roll_speed")[0], "0");
    EXPECT_EQ(table.at("shash")[0], "0");
}

TEST(Level, AmountsRiseWithTheLevelToTheirMaximum) {
    const CsvTable table = values({"--frames", "0-100", "--rate", "25", "--set",
                                   "Breakup Variation=0", "--key", "Master Breakup=0:0 4:100"});
    for (const Artefact& artefact : artefacts()) {
        const std::vector<double> amounts = numbers(table.at(std::string(artefact.amountName)));
        const double part = artefact.isFraction() ? 0.01 : 1.0;
        const double most = row(artefact.maximum).defaultValue * part;
        EXPECT_TRUE(std::is_sorted(amounts.begin(), amounts.end())) << artefact.id;
        EXPECT_EQ(amounts.front(), 0.0) << artefact.id;
        EXPECT_NEAR(amounts.back(), most, most * 1e-6) << artefact.id;
    }
}

TEST(Level, VariesBetweenNothingAndAllWithTheSeed) {
    const auto five = numbers(values({"--frames", "0-499"}).at("level"));
    const auto six = numbers(values({"--frames", "0-499", "--set", "Seed=6"}).at("level"));
    EXPECT_NE(five, six);
    for (const double each : five) {
        EXPECT_GE(each, 0.0);
        EXPECT_LE(each, 1.0);
    }
    const auto [least, most] = std::minmax_element(five.begin(), five.end());
    EXPECT_GT(*most - *least, 0.3);
}

TEST(Level, DependsOnTheFrameAlone) {
    const CsvTable all = values({"--frames", "0-60"});
    for (const int k : {0, 17, 60}) {
        const std::string frame = std::to_string(k);
        for (const auto& [name, column] : values({"--frames", frame})) {
            EXPECT_EQ(column[0], all.at(name)[static_cast<std::size_t>(k)]) << name << k;
        }
    }
}

TEST(Level, TakesItsFramesAndItsRateFromAClip) {
    TempFolder folder;
    media::runFfmpeg(media::movingPicture("64x48", "30000/1001", 0.4) + " -c:v libx264",
                     folder.file("a.mp4"));
    const CsvTable table = values({folder.file("a.mp4")});
    ASSERT_EQ(table.at("frame").size(), 12u);
    EXPECT_NEAR(std::stod(table.at("time")[11]), 11 * 1001.0 / 30000.0, 1e-12);
    EXPECT_EQ(values({folder.file("a.mp4"), "--frames", "2-3"}).at("frame"),
              (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(level({folder.file("a.mp4"), "--frames", "2-12"}).status, 2);
}

TEST(Level, TheTableShowsTheSameRounded) {
    const Outcome outcome = level({"--frames", "0-2", "--set", "Breakup Variation=0"});
    EXPECT_EQ(outcome.status, 0);
    std::istringstream lines(outcome.out);
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);) {
        all.push_back(line);
    }
    ASSERT_EQ(all.size(), 5u);
    EXPECT_NE(all[3].find("0.0400"), std::string::npos);
    EXPECT_NE(all[3].find(" 18.75 "), std::string::npos);
    EXPECT_EQ(all[3].size(), all[0].size());
}

TEST(Level, AWrongCommandLineEndsWithTwo) {
    TempFolder folder;
    media::writeRawFrame(folder.file("a.rgba8"), media::Frame({4, 3}, media::Depth::Bits8));
    const std::string raw = folder.file("a.rgba8");
    for (const Arguments& arguments :
         std::vector<Arguments>{{},
                                {"--rate", "25"},
                                {"--frames", "5-4"},
                                {"--frames", "0-9", "--rate", "0"},
                                {"--frames", "0-9", "--size", "4x3"},
                                {"--frames", "0-9", "--plot", folder.file("plot.png")},
                                {"--frames", "0-9", "--set", "Resoluton=3"},
                                {"--frames", "0-9", "--key", "Seed=0:3"},
                                {raw},
                                {raw, "--size", "4x3", "--frames", "0-1"}}) {
        const Outcome outcome = level(arguments);
        EXPECT_EQ(outcome.status, 2) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find("ruvex: "), std::string::npos);
    }
    EXPECT_EQ(level({raw, "--size", "4x3"}).status, 0);
}

TEST(Level, AFailedJobEndsWithOne) {
    TempFolder folder;
    EXPECT_EQ(level({folder.file("none.mp4")}).status, 1);
    const Outcome lost = level({"--frames", "0-9", "--plot", folder.file("none/plot.svg")});
    EXPECT_EQ(lost.status, 1);
    EXPECT_EQ(lost.out, "");
    EXPECT_EQ(folder.names(), std::vector<std::string>{});
    const std::string full = RUVEX_COMMAND " level --frames 0-9 >/dev/full 2>/dev/null";
    EXPECT_EQ(WEXITSTATUS(std::system(full.c_str())), 1);
}

TEST(Level, ThePlotOfTheDefaultsHasEveryPointAndEveryThreshold) {
    TempFolder folder;
    const std::string file = folder.file("level.svg");
    ASSERT_EQ(level({"--rate", "25", "--frames", "0-499", "--plot", file}).status, 0);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"level.svg"});
    std::ifstream stream(file);
    const std::string svg(std::istreambuf_iterator<char>(stream), {});
    const auto elements = readXml(svg);
    for (const char* label :
         {"Colour Threshold 50 %", "Ghosting Threshold 20 %", "Edge Threshold 40 %",
          "Snow Threshold 0 %", "Line Threshold 50 %", "Vert Offset Threshold 80 %",
          "Vert Roll Threshold 90 %", "Shash Threshold 99 %"}) {
        const auto shows = [&](const XmlElement& element) { return element.text == label; };
        EXPECT_EQ(std::count_if(elements.begin(), elements.end(), shows), 1) << label;
    }
    const std::string points = elements.back().attributes.at("points");
    EXPECT_EQ(elements.back().attributes.at("id"), "level");
    EXPECT_EQ(std::count(points.begin(), points.end(), ','), 500);
}

TEST(Level, ThePlotFollowsKeysAsTheRenderHoldsThem) {
    TempFolder folder;
    const std::string file = folder.file("level.svg");
    ASSERT_EQ(
        level({"--frames", "0-49", "--plot", file, "--key", "Edge Threshold=0:-50 1:150"}).status,
        0);
    std::ifstream stream(file);
    const auto elements = readXml({std::string(std::istreambuf_iterator<char>(stream), {})});
    for (const XmlElement& element : elements) {
        const auto id = element.attributes.find("id");
        if (id == element.attributes.end() || id->second != "edge-threshold") continue;
        const std::string points = element.attributes.at("points");
        EXPECT_TRUE(points.starts_with("62,410 ")) << points;
        EXPECT_TRUE(points.ends_with("770,66")) << points;
        return;
    }
    FAIL() << "no such line";
}

}  // namespace
}  // namespace ruvex::cli
