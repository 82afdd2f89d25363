#include "cli/shell_text.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>

#include "files/words.h"

namespace ruvex::cli {
namespace {

/// What a shell makes of a word.
std::string throughShell(const std::string& quoted) {
    const std::string script = "bash <<'END'\nprintf %s " + quoted + "\nEND\n";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(script.c_str(), "r"), pclose);
    std::string text;
    std::array<char, 256> part{};
    for (std::size_t n = 0; (n = fread(part.data(), 1, part.size(), pipe.get())) > 0;) {
        text.append(part.data(), n);
    }
    return text;
}

TEST(ShellQuoted, AShellReadsItBack) {
    for (const char* word : {"a",
                             "a b",
                             "it's",
                             "''",
                             "$HOME",
                             "`ls`",
                             "\\",
                             "a\nb",
                             "*",
                             "~",
                             "\"",
                             "Größe",
                             "a;b",
                             "-x",
                             "#",
                             "!",
                             "out.%05d.png",
                             "X Edge Method=Wrap",
                             "B&W",
                             "(",
                             "{a,b}",
                             "\x1B[31mred",
                             "\r\t'\\",
                             "\x01"
                             "7",
                             "caf\xE9"}) {
        EXPECT_EQ(throughShell(shellQuoted(word)), word);
        EXPECT_TRUE(files::isPrintable(shellQuoted(word)));
    }
}

TEST(ShellQuoted, OnlyWhatNeedsThemGetsQuotationMarks) {
    EXPECT_EQ(shellQuoted("shot.%05d.png"), "shot.%05d.png");
    EXPECT_EQ(shellQuoted("0-49"), "0-49");
    EXPECT_EQ(shellQuoted(""), "''");
    EXPECT_EQ(shellQuoted("a b"), "'a b'");
}

TEST(CommandText, HoldsWhatWasGivenAndNothingElse) {
    std::string input = "in put.mp4";
    std::string output = "o.mkv";
    std::string rate;
    std::string odd = "-5";
    std::vector<std::string> sets = {"A=1", "B C=2"};
    bool loud = true;
    bool quiet = false;
    const OptionTable table = {{"INPUT", "", "", &input},  {"-o,--output", "OUT", "", &output},
                               {"--rate", "R", "", &rate}, {"--odd", "N", "", &odd},
                               {"--set", "S", "", &sets},  {"-l,--loud", "", "", &loud},
                               {"--quiet", "", "", &quiet}};
    EXPECT_EQ(commandText("render", table),
              "ruvex render 'in put.mp4' -o o.mkv --odd=-5 --set A=1 --set 'B C=2' --loud");
    input = "-in.mp4";
    EXPECT_EQ(commandText("x", {{"INPUT", "", "", &input}}), "ruvex x ./-in.mp4");
    // An empty text is none; one of several is one, and keeps its place.
    sets = {"", "A=1"};
    rate.clear();
    EXPECT_EQ(commandText("x", {{"--rate", "R", "", &rate}, {"--set", "S", "", &sets}}),
              "ruvex x --set '' --set A=1");
    input.assign(1, '-');
    EXPECT_EQ(commandText("x", {{"INPUT", "", "", &input}}), "ruvex x -");
}

}  // namespace
}  // namespace ruvex::cli
