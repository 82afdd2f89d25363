// The command line that repeats a render: whatever the options hold, typed again it means the same.
// Each line of the input is the value of one option; a switch is on where the line is not empty.

#include <utility>

#include "cli/shell_text.h"
#include "cli/value_kind.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/shell_words.h"
#include "tests/fuzz/typed_line.h"

namespace {

using namespace ruvex;
using fuzz::demand;

void give(const std::string& word, bool* value) {
    *value = !word.empty();
}

void give(const std::string& word, std::string* value) {
    *value = word;
}

/// The first letter parts the values; an option that may be repeated holds no empty ones.
void give(const std::string& word, std::vector<std::string>* values) {
    if (word.empty()) return;
    std::string value;
    for (const char letter : word.substr(1) + word[0]) {
        if (letter != word[0]) {
            value += letter;
        } else if (!value.empty()) {
            values->push_back(std::exchange(value, {}));
        }
    }
}

void giveAll(std::vector<std::string> words, const cli::Command& command) {
    words.resize(command.options.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        const cli::Option& option = command.options[i];
        if (option.required && words[i].empty()) words[i].assign(1, 'x');
        auto* const* inputs = std::get_if<std::vector<std::string>*>(&option.value);
        if (inputs != nullptr && cli::isPlace(option)) {
            // One, since a name that begins with a hyphen is read back with ./ before it.
            **inputs = {words[i]};
        } else {
            std::visit([&](auto* value) { give(words[i], value); }, option.value);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto words = fuzz::wordsOf(fuzz::textOf(data, size));
    for (const std::string& word : words) {
        demand(fuzz::shellWords(cli::shellQuoted(word)) == std::vector{word}, "a word is itself");
    }
    fuzz::TypedLine given;
    const cli::Command& render = given.command("render");
    giveAll(words, render);
    fuzz::TypedLine typed;
    const cli::Command* read = typed.type(given.textOf(render));
    demand(read != nullptr && std::string_view(read->name) == "render", "a command is meant");
    fuzz::demandSameValues(given.valuesOf(render), typed.valuesOf(*read));
    return 0;
}
