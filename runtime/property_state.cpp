#include "runtime/property_state.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace ruvex::runtime {

namespace {

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool sameBits(const VARIANT& a, const VARIANT& b) {
    if (a.vt != b.vt) return false;
    return a.vt == VT_R8 ? sameBits(a.dblVal, b.dblVal) : a.lVal == b.lVal;
}

bool sameBits(const DSKey& a, const DSKey& b) {
    return sameBits(a.time, b.time) && sameBits(a.value, b.value) && a.mode == b.mode;
}

}  // namespace

bool sameBits(const PropertyState& a, const PropertyState& b) {
    return a.id == b.id && sameBits(a.plain, b.plain) &&
           std::ranges::equal(a.keys, b.keys,
                              [](const DSKey& x, const DSKey& y) { return sameBits(x, y); });
}

PropertyState readState(IDSProperties& properties, const GUID& id) {
    const auto done = [&](HRESULT status) { require(status, "cannot read " + toText(id)); };
    PropertyState state{id};
    done(properties.GetPlainValue(id, &state.plain));
    ULONG count = 0;
    done(properties.GetKeys(id, nullptr, 0, &count));
    state.keys.resize(count);
    done(properties.GetKeys(id, state.keys.data(), count, &count));
    return state;
}

bool isStored(const CDSParamDef& definition) {
    return definition.capabilities != DSCAPS_USER_INTERFACE;
}

std::vector<PropertyState> readStates(IDSProperties& properties) {
    ULONG count = 0;
    require(properties.GetPropertyCount(&count), "the object does not list its properties");
    std::vector<PropertyState> states;
    for (ULONG i = 0; i < count; ++i) {
        const CDSParamDef* definition = nullptr;
        require(properties.GetPropertyDef(i, &definition), "a property has no definition");
        if (isStored(*definition)) states.push_back(readState(properties, definition->id));
    }
    return states;
}

DSPropertyState viewOf(const PropertyState& state) {
    return {state.id, state.plain, state.keys.data(), static_cast<ULONG>(state.keys.size())};
}

std::vector<DSPropertyState> viewsOf(std::span<const PropertyState> states) {
    std::vector<DSPropertyState> views;
    views.reserve(states.size());
    for (const PropertyState& state : states) views.push_back(viewOf(state));
    return views;
}

void writeStates(IDSProperties& properties, std::span<const PropertyState> states) {
    const std::vector<DSPropertyState> views = viewsOf(states);
    require(properties.SetStates(views.data(), static_cast<ULONG>(views.size())),
            "cannot set the stored state");
}

}  // namespace ruvex::runtime
