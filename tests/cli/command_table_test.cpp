#include "cli/command_table.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>
#include <set>

#include "cli/commands.h"
#include "cli/help_text.h"

namespace ruvex::cli {
namespace {

struct Values {
    bool loud = false;
    std::string input;
    std::string rate;
    std::vector<std::string> sets;
};

Command commandOver(Values& values) {
    return {.name = "try",
            .summary = "Try it",
            .options = {{"INPUT", "", "What goes in", &values.input, true},
                        {"-r,--rate", "R", "How fast", &values.rate, false, "--loud"},
                        {"--set", "NAME", "Repeatable", &values.sets},
                        {"--loud", "", "Louder", &values.loud}},
            .notes = "A note.",
            .examples = {"ruvex try this"},
            .run = [] { return 0; }};
}

/// False if the parser refuses the words.
bool parses(Values& values, std::vector<std::string> words) {
    CLI::App app;
    const Command command = commandOver(values);
    declareCommand(app, command);
    try {
        std::ranges::reverse(words);
        app.parse(words);
        return true;
    } catch (const CLI::ParseError&) {
        return false;
    }
}

TEST(CommandTable, ValuesGoWhereTheTableSays) {
    Values values;
    EXPECT_TRUE(parses(values, {"try", "--set", "a", "in", "--set", "b", "--loud", "-r", "3"}));
    EXPECT_EQ(values.input, "in");
    EXPECT_EQ(values.rate, "3");
    EXPECT_EQ(values.sets, (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(values.loud);
}

TEST(CommandTable, RequiredAndNeededOptionsAreAskedFor) {
    Values values;
    EXPECT_FALSE(parses(values, {"try"}));
    EXPECT_FALSE(parses(values, {"try", "in", "--rate", "3"}));
    EXPECT_FALSE(parses(values, {"try", "in", "more"}));
    EXPECT_TRUE(parses(values, {"try", "in"}));
}

TEST(CommandTable, TheHelpHoldsAllThatTheTableSays) {
    Values values;
    const std::string help = commandHelp(commandOver(values), HelpLength::Long);
    for (const char* part : {"Try it", "Usage: ruvex try INPUT [OPTIONS]", "INPUT",
                             "What goes in. Required.", "-r,--rate R", "How fast. Requires --loud.",
                             "--loud", "A note.", "Examples:\n  ruvex try this", "Exit status"}) {
        EXPECT_NE(help.find(part), std::string::npos) << part << '\n' << help;
    }
}

TEST(Commands, EachOptionHasWordsOfHelpAndANameOfItsOwn) {
    EXPECT_GE(commands().size(), 6u);
    for (const Command& command : commands()) {
        EXPECT_STRNE(command.summary, "");
        std::set<std::string> names;
        for (const Option& option : command.options) {
            EXPECT_TRUE(names.insert(option.name).second) << command.name << ' ' << option.name;
            EXPECT_STRNE(option.help, "") << command.name << ' ' << option.name;
            const bool isSwitch = std::holds_alternative<bool*>(option.value);
            const bool isPlace = option.name[0] != '-';
            EXPECT_EQ(*option.argument == '\0', isSwitch || isPlace) << option.name;
        }
        for (const char* example : command.examples) {
            EXPECT_TRUE(std::string(example).starts_with(std::string("ruvex ") + command.name));
        }
    }
}

}  // namespace
}  // namespace ruvex::cli
