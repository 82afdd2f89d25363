// What the command tells of itself, held to the table of commands.

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <sstream>

#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/exit_status.h"
#include "cli/help_text.h"
#include "cli/man_page.h"
#include "cli/option_group.h"
#include "cli/value_kind.h"
#include "parameters/parameter_table.h"
#include "tests/cli/own_looks.h"
#include "tests/cli/run_command.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// The text without line ends and runs of spaces, which a typesetter chooses.
std::string inOneLine(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;) line.append(line.empty() ? "" : " ").append(word);
    return line;
}

std::string outputOf(const std::string& command, int& status) {
    FILE* pipe = popen(command.c_str(), "r");
    std::string text;
    for (int letter = 0; (letter = fgetc(pipe)) != EOF;) text += static_cast<char>(letter);
    status = WEXITSTATUS(pclose(pipe));
    return text;
}

TEST(ExitStatuses, AreInEveryHelpAndInTheReadme) {
    const std::string text = exitStatusText();
    EXPECT_EQ(text,
              "Exit status: 0 done, 1 the job failed, 2 the command line is wrong, 3 a farm job is "
              "under way, 130 stopped by Ctrl-C.");
    EXPECT_TRUE(holds(ruvex({"--help"}).out, text));
    for (const Command& command : commands()) {
        EXPECT_TRUE(holds(ruvex(wordsOf(command) + Arguments{"--help"}).out, text)) << command.name;
    }
    std::ifstream file(RUVEX_README);
    const std::string readme(std::istreambuf_iterator<char>(file), {});
    EXPECT_TRUE(holds(inOneLine(readme), text));
}

TEST(Help, TellsOfEachCommandWhatItsOwnHelpTells) {
    EXPECT_EQ(ruvex({"help"}).out, ruvex({"--help"}).out);
    for (const Command& command : commands()) {
        const Outcome help = ruvex(Arguments{"help"} + wordsOf(command));
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.out, ruvex(wordsOf(command) + Arguments{"--help"}).out) << command.name;
    }
    EXPECT_EQ(ruvex({"help", "rendre"}).status, 2);
    EXPECT_EQ(ruvex({"help", "render", "--man"}).status, 2);
    EXPECT_EQ(ruvex({"help", "--completion", "tcsh"}).status, 2);
}

/// Lines of at most 80 characters.
void expectNarrow(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
}

TEST(Help, IsShortWithOneDash) {
    for (const Command& command : commands()) {
        const Outcome shorter = ruvex(wordsOf(command) + Arguments{"-h"});
        EXPECT_EQ(shorter.status, 0);
        EXPECT_EQ(shorter.out, commandHelp(command, HelpLength::Short));
        EXPECT_LT(shorter.out.size(), commandHelp(command, HelpLength::Long).size());
        for (const Option& option : command.options) {
            EXPECT_TRUE(holds(shorter.out, std::string("\n  ") + option.name)) << option.name;
        }
        const std::string options = shorter.out.substr(0, shorter.out.find("\nExamples:"));
        expectNarrow(options);
    }
    EXPECT_EQ(ruvex({"-h"}).out, programHelp(commands(), HelpLength::Short));
    EXPECT_EQ(ruvex({"render", "-h", "--nonsense"}).status, 0);
}

TEST(Help, ListsManyOptionsInGroups) {
    for (const char* name : {"render", "compare", "level"}) {
        const auto command = std::ranges::find_if(
            commands(), [&](const Command& one) { return std::string(one.name) == name; });
        for (const Option& option : command->options) {
            EXPECT_NE(groupOf(option), OptionGroup::Other) << name << ' ' << option.name;
        }
        const std::string help = ruvex({name, "--help"}).out;
        std::size_t at = 0;
        for (const char* title : {"\nInput and output:\n", "\nLook:\n", "\nTime:\n", "\nHelp:\n"}) {
            EXPECT_NE(help.find(title, at), std::string::npos) << title;
            at = std::min(help.find(title, at), help.size());
        }
    }
}

/// Options without which nothing happens, so that they have no default.
bool hasNoDefault(const std::string& name) {
    static const std::set<std::string> names = {
        "--params",   "--preset",     "--save-params", "--size",   "--mask",
        "--save-job", "--save-to",    "--sheet",       "--output", "--plot",
        "--man",      "--completion", "--vary"};
    return names.contains(name);
}

TEST(Help, NamesTheDefaultOfEachOptionThatHasOne) {
    for (const Command& command : commands()) {
        for (const Option& option : command.options) {
            if (!std::holds_alternative<std::string*>(option.value)) continue;
            if (isPlace(option) || hasNoDefault(longName(option))) continue;
            EXPECT_TRUE(holds(option.help, "default: ")) << command.name << ' ' << option.name;
        }
    }
}

TEST(Help, TellsTheSameOfTheRateEverywhere) {
    std::set<std::string> texts;
    for (const Command& command : commands()) {
        for (const Option& option : command.options) {
            if (longName(option) == "--rate") texts.insert(option.help);
        }
    }
    EXPECT_EQ(texts.size(), 1u);
}

// As a reader sees it, so that nothing is lost in the typesetter's language.
TEST(ManPage, HoldsAllThatTheTableSays) {
    int status = 0;
    const std::string typeset = outputOf(
        RUVEX_COMMAND " help --man | groff -man -ww -Tascii -P-cbou -rLL=4000m 2>&1", status);
    if (status == 127) GTEST_SKIP() << "no typesetter here";
    ASSERT_EQ(status, 0);
    EXPECT_FALSE(holds(typeset, "warning")) << typeset;
    const std::string page = inOneLine(typeset);
    for (const Command& command : commands()) {
        EXPECT_TRUE(holds(page, inOneLine(command.summary))) << command.name;
        EXPECT_TRUE(holds(page, inOneLine(command.notes))) << command.name;
        for (const char* example : command.examples) {
            EXPECT_TRUE(holds(page, inOneLine(example))) << example;
        }
        for (const Option& option : command.options) {
            std::string head(option.name);
            if (const auto comma = head.find(','); comma != std::string::npos) {
                head.insert(comma + 1, 1, ' ');
            }
            if (*option.argument != '\0') head.append(" ").append(option.argument);
            EXPECT_TRUE(holds(page, inOneLine(head.append(" ").append(option.help)))) << head;
        }
    }
    for (const ExitStatus& known : kExitStatuses) {
        EXPECT_TRUE(holds(page, std::to_string(known.code).append(" ").append(known.meaning)));
    }
}

TEST(ManPage, LinesThatBeginAsCommandsOfTheTypesetterDoAreText) {
    const Command odd{.name = "odd",
                      .summary = "Odd",
                      .options = {},
                      .notes = ".png\n'quoted'\nback\\slash",
                      .examples = {},
                      .run = {}};
    const std::string page = manPage({odd});
    EXPECT_TRUE(holds(page, "\n\\&.png\n\\&'quoted'\nback\\eslash\n")) << page;
}

TEST(ValueKind, IsThatOfTheArgument) {
    std::string text;
    bool on = false;
    const auto kind = [&](const char* argument) { return valueKind({"--x", argument, "", &text}); };
    EXPECT_EQ(kind("8|16"), ValueKind::Choice);
    EXPECT_EQ(kind("blank|hold|loop"), ValueKind::Choice);
    EXPECT_EQ(kind("FILE"), ValueKind::File);
    EXPECT_EQ(kind("NAME|FILE"), ValueKind::PresetOrFile);
    EXPECT_EQ(kind("\"NAME=VALUE\""), ValueKind::Parameter);
    EXPECT_EQ(kind("WxH"), ValueKind::Text);
    EXPECT_EQ(kind("A-B"), ValueKind::Text);
    EXPECT_EQ(valueKind({"--x", "", "", &on}), ValueKind::None);
    EXPECT_EQ(valueKind({"INPUT", "", "", &text}), ValueKind::File);
}

/// What bash would offer after these words; the last one is being typed.
std::vector<std::string> offered(const std::vector<std::string>& words) {
    static const files::TempFolder folder;
    std::ofstream(folder.file("ruvex.bash")) << bashCompletion(commands());
    std::ofstream script(folder.file("ask.bash"));
    script << "source " << folder.file("ruvex.bash") << "\nCOMP_WORDS=('" RUVEX_COMMAND "'";
    for (const std::string& word : words) script << " '" << word << "'";
    script << ")\nCOMP_CWORD=" << words.size() << "\n_ruvex\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
    script.close();
    int status = 0;
    const std::string ask =
        std::string("cd ").append(folder.path()).append(" && bash ask.bash 2>&1");
    std::istringstream lines(outputOf(ask, status));
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) all.push_back(line);
    }
    return all;
}

using Words = std::vector<std::string>;

TEST(Completion, OffersEveryCommandAndOption) {
    const Words first = offered({""});
    for (const Command& command : commands()) {
        const Words name = wordsOf(command);
        EXPECT_EQ(std::ranges::count(first, name.front()), 1) << command.name;
        if (name.size() > 1) {
            const Words second = offered({name.front(), ""});
            EXPECT_EQ(std::ranges::count(second, name.back()), 1) << command.name;
        }
        const Words options = offered(name + Words{"-"});
        std::size_t expected = 2;  // -h and --help
        for (const Option& option : command.options) {
            for (const std::string& name : namesOf(option)) {
                EXPECT_EQ(std::ranges::count(options, name), 1) << command.name << ' ' << name;
                ++expected;
            }
        }
        EXPECT_EQ(options.size(), expected) << command.name;
    }
}

TEST(Completion, OffersWhatAnOptionTakes) {
    EXPECT_EQ(offered({"render", "--depth", ""}), (Words{"8", "16"}));
    EXPECT_EQ(offered({"render", "a.mp4", "--ends", "l"}), Words{"loop"});
    EXPECT_EQ(offered({"render", "--preset", "Bad C"}), Words{"Bad Colour TV"});
    EXPECT_EQ(offered({"render", "--preset", "Bad\\ C"}), Words{"Bad Colour TV"});
    EXPECT_EQ(offered({"render", "--preset", "\"Bad C"}), Words{"Bad Colour TV"});
    EXPECT_EQ(offered({"render", "--preset", "Clea"}), Words{"Clean"});
    EXPECT_EQ(offered({"presets", "--group", "o"}), Words{"own"});
    EXPECT_EQ(offered({"compare", "--set", "Snow M"}), Words{"Snow Max="});
    EXPECT_EQ(offered({"compare", "-s", "Snow M"}), Words{"Snow Max="});
    EXPECT_EQ(offered({"render", "-p", "Bad C"}), Words{"Bad Colour TV"});
    EXPECT_EQ(offered({"help", "le"}), Words{"level"});
    EXPECT_EQ(offered({"render", "ruvex.b"}), Words{"ruvex.bash"});
    EXPECT_EQ(offered({"render", "--rate", ""}), Words{});
    EXPECT_EQ(offered({"level", "--set", ""}).size(), parameterTable().size());
}

// A shell must not run what stands in a look's name.
TEST(Completion, OffersTheUsersLooksAsTheyAre) {
    const OwnLooks own;
    own.write("a.json", R"j({"name": "Mine $(touch ran) `touch ran` 'x"})j");
    EXPECT_EQ(offered({"render", "--preset", "Min"}), Words{"Mine $(touch ran) `touch ran` 'x"});
}

TEST(Completion, FishKnowsTheSameOptions) {
    const std::string script = fishCompletion(commands());
    for (const Command& command : commands()) {
        for (const Option& option : command.options) {
            for (const std::string& name : namesOf(option)) {
                if (!name.starts_with("--")) continue;
                const std::string start = "from " + wordsOf(command).back() + "'";
                EXPECT_TRUE(holds(script, start)) << command.name;
                EXPECT_TRUE(holds(script, std::string(" -l ").append(name, 2).append(" "))) << name;
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::cli
