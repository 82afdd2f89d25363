// Parameter files: JSON.

#include <cmath>
#include <set>

#include "cli/parameter_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::cli;
using fuzz::demand;

const std::string kName = "look.json";

using Changes = std::vector<ParameterChange>;

std::optional<Changes> accepted(const std::string& text) {
    std::vector<std::string> warnings;
    auto changes = fuzz::unlessRefused<ParameterFileError>(
        [&] { return parseParameterFile(kName, text, warnings); },
        [](std::string_view sentence) {
            fuzz::demandPrintable(sentence);
            fuzz::demandNamed(sentence, kName + ": ");
            demand(sentence.back() == '.', "a refusal is a sentence");
            demand(sentence.size() < 2000, "a refusal fits a screen, whatever the file holds");
        });
    for (const std::string& warning : warnings) {
        fuzz::demandPrintable(warning);
        fuzz::demandNamed(warning, kName + ": ");
    }
    return changes;
}

void demandSound(const Changes& changes) {
    std::set<const ParameterRow*> seen;
    for (const ParameterChange& change : changes) {
        demand(seen.insert(&rowOf(change)).second, "a parameter is changed once");
        if (const auto* setting = std::get_if<Setting>(&change)) {
            demand(std::isfinite(setting->value), "a value is finite");
            continue;
        }
        const auto& keys = std::get<Animation>(change).keys;
        demand(!keys.empty(), "an animation has keys");
        for (std::size_t i = 0; i < keys.size(); ++i) {
            demand(std::isfinite(keys[i].seconds) && std::isfinite(keys[i].value), "finite keys");
            demand(i == 0 || keys[i - 1].seconds < keys[i].seconds, "keys stand in order");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto changes = accepted(std::string(fuzz::textOf(data, size)));
    if (!changes) return 0;
    demandSound(*changes);
    // The text has as many digits as the values need, so that the same text means the same values.
    const std::string text = parameterFileText(*changes);
    const auto again = accepted(text);
    demand(again && again->size() == changes->size(), "a file that was written is read");
    demand(parameterFileText(*again) == text, "and holds the same");
    return 0;
}
