// Common slips on a command line.

#include "cli/slips.h"

#include <fstream>
#include <gtest/gtest.h>

#include "cli/commands.h"
#include "cli/whole_sequence.h"
#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// The command that was meant; empty if there is none.
std::string meant(const std::vector<std::string>& words) {
    const std::string text = meantInstead(commands(), words);
    const std::string mark = "Did you mean: ";
    const auto at = text.find(mark);
    return at == std::string::npos ? text : text.substr(at + mark.size());
}

TEST(Slips, ForgottenQuotesAroundAParameter) {
    EXPECT_EQ(meant({"render", "a.mp4", "-o", "x.mp4", "--set", "Snow", "Max=90"}),
              "ruvex render a.mp4 -o x.mp4 --set 'Snow Max=90'");
    EXPECT_EQ(meant({"render", "-o", "x.mp4", "--set", "Snow", "Max=90", "--set", "Fish", "Eye=on",
                     "a.mp4"}),
              "ruvex render -o x.mp4 --set 'Snow Max=90' --set 'Fish Eye=on' a.mp4");
    EXPECT_EQ(meant({"level", "--key", "Master", "Breakup=0:0", "1:100:hold", "a.mp4"}),
              "ruvex level --key 'Master Breakup=0:0 1:100:hold' a.mp4");
    EXPECT_EQ(meant({"level", "--set", "Snow", "Mux=90", "a.mp4"}),
              "ruvex level --set 'Snow Mux=90' a.mp4");
    EXPECT_EQ(meant({"level", "--set", "Snow Max=90", "a.mp4"}), "");
    EXPECT_EQ(meant({"level", "--set=TV", "Type=Tint"}), "ruvex level --set='TV Type=Tint'");
}

TEST(Slips, ForgottenQuotesAroundAPreset) {
    EXPECT_EQ(meant({"render", "a.mp4", "-o", "x.mp4", "--preset", "Bad", "Colour", "TV"}),
              "ruvex render a.mp4 -o x.mp4 --preset 'Bad Colour TV'");
    EXPECT_EQ(meant({"render", "--preset", "Bad", "Color", "TV", "a.mp4", "-o", "x.mp4"}),
              "ruvex render --preset 'Bad Colour TV' a.mp4 -o x.mp4");
    EXPECT_EQ(meant({"level", "--preset", "Bad Colour TV", "a.mp4"}), "");
    EXPECT_EQ(meant({"level", "--preset", "Good TV", "b"}), "");
}

TEST(Slips, ForgottenQuotesAroundAFile) {
    const files::TempFolder folder;
    const std::string clip = folder.file("my").string();
    std::ofstream(clip + " old clip");
    EXPECT_EQ(meant({"render", clip, "old", "clip", "-o", "x.mp4"}),
              "ruvex render '" + clip + " old clip' -o x.mp4");
    EXPECT_EQ(meant({"render", clip, "old", "clip", "x.mp4"}),
              "ruvex render '" + clip + " old clip' -o x.mp4");
    EXPECT_EQ(meant({"render", "no", "such.mp4", "-o", "x.mp4"}),
              "ruvex render 'no such.mp4' -o x.mp4");
    EXPECT_EQ(meant({"render", "a.mp4", "-o", "my", "x.mp4"}), "ruvex render a.mp4 -o 'my x.mp4'");
}

TEST(Slips, AFileThatExistsIsNotSuggestedAsTheResult) {
    const files::TempFolder folder;
    const std::string clip = folder.file("a.mp4").string();
    const std::string other = folder.file("b.mp4").string();
    std::ofstream{clip};
    std::ofstream{other};
    EXPECT_EQ(meant({"render", clip, other}),
              "ruvex render " + clip + " " + other + " -o results/");
    EXPECT_EQ(meant({clip, other}), "ruvex render " + clip + " " + other + " -o results/");
}

TEST(Slips, AMissingOutputOption) {
    EXPECT_EQ(meant({"render", "a.mp4", "x.mp4"}), "ruvex render a.mp4 -o x.mp4");
    EXPECT_EQ(meant({"compare", "a.mp4", "x.mp4", "--split"}),
              "ruvex compare a.mp4 -o x.mp4 --split");
    EXPECT_EQ(meant({"render", "a.mp4"}), "");
    EXPECT_EQ(meant({"presets", "x.png"}), "");
    EXPECT_EQ(meant({"level", "a.mp4", "x.mp4"}), "");
}

TEST(Slips, AMissingCommand) {
    EXPECT_EQ(meant({"clip.mp4"}), "ruvex render clip.mp4 -o result.mp4");
    EXPECT_EQ(meant({"clip.mp4", "x.mp4"}), "ruvex render clip.mp4 -o x.mp4");
    EXPECT_EQ(meant({"clip.mp4", "--set", "Seed=1", "-o", "x.mp4"}),
              "ruvex render clip.mp4 --set Seed=1 -o x.mp4");
}

TEST(Slips, MistypedNames) {
    EXPECT_EQ(meant({"rendr", "a.mp4"}), "Did you mean 'render'?");
    EXPECT_EQ(meant({"--verison"}), "ruvex --version");
    EXPECT_EQ(meant({"render", "a.mp4", "--qualty", "5", "-o", "x.mp4"}),
              "ruvex render a.mp4 --quality 5 -o x.mp4");
    EXPECT_EQ(meant({"frobnicate"}), "");
    EXPECT_EQ(meant({"render", "a.mp4", "--nonsense", "-o", "x.mp4"}), "");
    EXPECT_EQ(meant({}), "");
    EXPECT_EQ(meant(std::vector<std::string>(5000, "word")), "");
}

TEST(Slips, AreAnsweredOnTheCommandLine) {
    const Outcome quotes = ruvex({"render", "a", "-o", "b.mp4", "--set", "Snow", "Max=9", "x"});
    EXPECT_EQ(quotes.status, 2);
    EXPECT_TRUE(holds(quotes.err, "inputs (a, Max=9, x) need a folder")) << quotes.err;
    EXPECT_TRUE(holds(quotes.err, "quotation marks")) << quotes.err;
    // The parser takes the word for the input.
    const Outcome taken = ruvex({"level", "--frames", "0", "--set", "Snow", "Max=9"});
    EXPECT_EQ(taken.status, 2);
    EXPECT_TRUE(holds(taken.err, "--set 'Snow Max=9'")) << taken.err;
    const Outcome preset = ruvex({"level", "--frames", "0", "--preset", "Bad Color TV"});
    EXPECT_TRUE(holds(preset.err, "Did you mean 'Bad Colour TV'?")) << preset.err;
    const Outcome look =
        ruvex({"render", "a", "-o", "b.mp4", "--preset", "Pictur", "Loss", "--quiet"});
    EXPECT_TRUE(holds(look.err, "--preset 'Picture Loss'")) << look.err;
    EXPECT_TRUE(holds(ruvex({"help", "rendr"}).err, "Did you mean 'render'?"));
    EXPECT_TRUE(holds(ruvex({"render", "a", "-o"}).err, "--output lacks its value."));
}

TEST(WholeSequence, IsThatOfANumberedStillWithANextOne) {
    const files::TempFolder folder;
    for (const char* name :
         {"s.001.png", "s.002.png", "t9.png", "t10.png", "u.5.png", "2024.png"}) {
        std::ofstream(folder.file(name));
    }
    const auto whole = [&](const std::string& input, const std::string& output) {
        RenderOptions options;
        options.inputs = {folder.file(input).string()};
        options.output = output;
        const auto found = wholeSequence(options);
        if (!found) return std::string("none");
        return std::filesystem::path(found->inputs.front()).filename().string() + " " +
               found->output;
    };
    EXPECT_EQ(whole("s.001.png", "x.mp4"), "s.%03d.png x.mp4");
    EXPECT_EQ(whole("s.001.png", "out/x.001.png"), "s.%03d.png out/x.%03d.png");
    EXPECT_EQ(whole("s.001.png", "x.%d.png"), "s.%03d.png x.%d.png");
    EXPECT_EQ(whole("t9.png", "x.mp4"), "t%d.png x.mp4");
    EXPECT_EQ(whole("s.001.png", "x.png"), "none");
    EXPECT_EQ(whole("s.002.png", "x.mp4"), "none");
    EXPECT_EQ(whole("u.5.png", "x.mp4"), "none");
    EXPECT_EQ(whole("2024.png", "x.mp4"), "none");
    EXPECT_EQ(whole("s.%03d.png", "x.mp4"), "none");
    EXPECT_EQ(whole("missing.mp4", "x.mp4"), "none");
}

}  // namespace
}  // namespace ruvex::cli
