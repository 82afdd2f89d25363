// Look files: JSON.

#include <cmath>
#include <set>

#include "looks/look_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::looks;
using fuzz::demand;

const std::string kName = "look.json";

using Changes = std::vector<ParameterChange>;

std::optional<Look> accepted(const std::string& text) {
    std::vector<std::string> warnings;
    auto look = fuzz::unlessRefused<LookFileError>(
        [&] { return parseLookFile(kName, text, warnings); },
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
    return look;
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

void demandDescribed(const Look& look) {
    for (const std::string* text : {&look.name, &look.description, &look.author}) {
        if (!text->empty()) fuzz::demandPrintable(*text);
        demand(text->size() <= 300, "a text has a limit");
    }
    if (look.projectSize) {
        const auto [width, height] = *look.projectSize;
        demand(width >= 1 && height >= 1 && width <= kLongestProjectSide &&
                   height <= kLongestProjectSide,
               "a project frame is in range");
    }
}

void demandSame(const Setting& a, const ParameterChange& b) {
    const auto* setting = std::get_if<Setting>(&b);
    demand(setting && setting->id == a.id && fuzz::sameBits(setting->value, a.value),
           "a value is read as it was, to the bit");
}

void demandSame(const Animation& a, const ParameterChange& b) {
    const auto* animation = std::get_if<Animation>(&b);
    demand(animation && animation->id == a.id && animation->keys.size() == a.keys.size(),
           "keys are read as they were");
    for (std::size_t i = 0; i < a.keys.size(); ++i) {
        demand(fuzz::sameBits(animation->keys[i].seconds, a.keys[i].seconds) &&
                   fuzz::sameBits(animation->keys[i].value, a.keys[i].value) &&
                   animation->keys[i].mode == a.keys[i].mode,
               "to the bit");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto look = accepted(std::string(fuzz::textOf(data, size)));
    if (!look) return 0;
    const Changes& changes = look->changes;
    demandSound(changes);
    demandDescribed(*look);
    const auto again = accepted(lookFileText(*look));
    demand(again && again->changes.size() == changes.size(), "a file that was written is read");
    demand(again->name == look->name && again->description == look->description &&
               again->author == look->author && again->projectSize == look->projectSize,
           "a description is read as it was");
    for (std::size_t i = 0; i < changes.size(); ++i) {
        std::visit([&](const auto& change) { demandSame(change, again->changes[i]); }, changes[i]);
    }
    return 0;
}
