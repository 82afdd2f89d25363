// --set, --key and --vary.

#include <cmath>

#include "cli/typed_parameter.h"
#include "cli/usage_error.h"
#include "cli/variations.h"
#include "parameters/parameter_text.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::cli;
using fuzz::demand;
using Sentences = std::vector<std::string>;

void demandUsable(const ParameterRow& row, double value, bool warned) {
    demand(std::isfinite(value), "a value is finite");
    demand(isReal(row.kind) || value == std::trunc(value), "only real parameters have fractions");
    const auto range = row.enteredRange();
    const bool inside = !range || range->contains(value);
    demand(inside || (row.clamp && warned), "what lies outside is held to a range, and is told of");
    const double used = renderClamp(row.id, value);
    demand(!row.clamp || row.clamp->contains(used), "what is used lies in the range");
}

template <class Parse>
auto accepted(const char* option, Parse parse) {
    return fuzz::unlessRefused<UsageError>(
        parse, [&](std::string_view sentence) { fuzz::demandNamed(sentence, option); });
}

void trySetting(const std::string& text) {
    Sentences first;
    const auto setting = accepted("--set: ", [&] { return parseSetting(text, first); });
    if (!setting) return;
    demandUsable(row(setting->id), setting->value, !first.empty());
    for (const std::string& sentence : first) fuzz::demandNamed(sentence, "--set: ");
    Sentences second;
    const std::string written =
        std::string(row(setting->id).label) + "=" + formatValue(row(setting->id), setting->value);
    const looks::Setting again = parseSetting(written, second);
    demand(again.id == setting->id && fuzz::sameBits(again.value, setting->value),
           "a setting reads back");
    demand(first.size() == second.size(), "and warns of the same");
}

std::string textOf(const looks::Animation& animation) {
    std::string text = std::string(row(animation.id).label) + "=";
    for (const looks::Key& key : animation.keys) {
        text += formatNumber(key.seconds) + ":" + formatNumber(key.value) + ":";
        text.append(looks::keyModeName(key.mode)).append(" ");
    }
    return text;
}

void tryAnimation(const std::string& text) {
    Sentences first;
    const auto found = accepted("--key: ", [&] { return parseAnimation(text, first); });
    if (!found) return;
    demand(isReal(row(found->id).kind) && !found->keys.empty(), "a real parameter with keys");
    for (std::size_t i = 0; i < found->keys.size(); ++i) {
        const looks::Key& key = found->keys[i];
        demandUsable(row(found->id), key.value, !first.empty());
        demand(std::isfinite(key.seconds), "a time is finite");
        demand(i == 0 || found->keys[i - 1].seconds < key.seconds, "keys stand in order");
    }
    Sentences second;
    const looks::Animation again = parseAnimation(textOf(*found), second);
    demand(again.id == found->id && again.keys.size() == found->keys.size(), "keys read back");
    for (std::size_t i = 0; i < again.keys.size(); ++i) {
        demand(fuzz::sameBits(again.keys[i].seconds, found->keys[i].seconds) &&
                   fuzz::sameBits(again.keys[i].value, found->keys[i].value) &&
                   again.keys[i].mode == found->keys[i].mode,
               "to the bit");
    }
    demand(first.size() == second.size(), "and warn of the same");
}

void tryVariations(const std::string& text) {
    Sentences warnings;
    const auto found = accepted("--vary", [&] { return parseVariations(text, warnings); });
    if (!found) return;
    demand(!found->empty() && found->size() <= kMostVariations, "a sheet can show the variations");
    for (const Variation& one : *found) {
        const ParameterRow& parameter = row(one.setting.id);
        demand(one.setting.id == found->front().setting.id, "variations are of one parameter");
        demandUsable(parameter, one.setting.value, !warnings.empty());
        demand(one.label.starts_with(parameter.label), "a label names the parameter");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::wordOf(fuzz::textOf(data, size));
    trySetting(text);
    if (text.find(':') != std::string::npos) tryAnimation(text);
    tryVariations(text);
    return 0;
}
