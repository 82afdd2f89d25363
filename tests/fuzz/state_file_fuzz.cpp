// State files: JSON.

#include <algorithm>
#include <cmath>

#include "looks/state_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::looks;
using fuzz::demand;
using States = std::vector<runtime::PropertyState>;

const std::string kStateFile = "effect.state";

/// The last digit of an identifier says what the property is.
const CDSParamDef* findProperty(const GUID& id) {
    static const GUID base = guidFromText("77A1C006-0000-4000-8000-000000000000");
    const auto define = [](std::uint8_t last, ULONG capabilities, VARTYPE type) {
        CDSParamDef definition{};
        definition.id = base;
        definition.id.Data4[7] = last;
        definition.capabilities = capabilities;
        definition.type = type;
        return definition;
    };
    static const CDSParamDef definitions[] = {
        define(0, DSCAPS_ANIMATABLE, VT_R8), define(1, DSCAPS_PLAIN, VT_R8),
        define(2, DSCAPS_PLAIN, VT_I4), define(3, DSCAPS_PLAIN, VT_BOOL),
        define(4, DSCAPS_USER_INTERFACE, VT_I4)};
    const auto* const found = std::ranges::find(definitions, id, &CDSParamDef::id);
    return found == std::end(definitions) ? nullptr : found;
}

std::optional<States> acceptedStates(const std::string& text) {
    return fuzz::unlessRefused<StateFileError>(
        [&] { return parseStateFile(kStateFile, text, findProperty); },
        [](std::string_view sentence) {
            fuzz::demandPrintable(sentence);
            fuzz::demandNamed(sentence, kStateFile + ": ");
            demand(sentence.size() < 2000, "a refusal fits a screen, whatever the file holds");
        });
}

void demandValid(const runtime::PropertyState& state) {
    const CDSParamDef* const definition = findProperty(state.id);
    demand(definition && definition->accepts(state.plain), "a value fits its property");
    demand(state.keys.empty() || definition->animatable(), "only reals that can be animated are");
    for (const DSKey& key : state.keys) {
        demand(std::isfinite(key.time) && std::isfinite(key.value), "keys are finite");
    }
    const auto notBefore = [](const DSKey& a, const DSKey& b) { return !(a.time < b.time); };
    demand(std::ranges::adjacent_find(state.keys, notBefore) == state.keys.end(),
           "keys are in order");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto states = acceptedStates(std::string(fuzz::textOf(data, size)));
    if (!states) return 0;
    for (const runtime::PropertyState& state : *states) demandValid(state);
    const auto again = acceptedStates(stateFileText(*states));
    demand(again && again->size() == states->size(), "a file that was written is read");
    demand(std::ranges::equal(*states, *again,
                              [](const auto& a, const auto& b) { return runtime::sameBits(a, b); }),
           "a state is read as it was, to the bit");
    return 0;
}
