#include "looks/state_file.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "files/words.h"
#include "looks/json_document.h"
#include "looks/key_mode.h"

namespace ruvex::looks {
namespace {

using runtime::PropertyState;

constexpr const char* kVersionMember = "ruvexState";
constexpr const char* kKeysMember = "keys";
constexpr const char* kTimeMember = "seconds";
constexpr const char* kValueMember = "value";
constexpr const char* kModeMember = "mode";
constexpr const char* kStateForm =
    "{\"real\": 0.5, \"keys\": [{\"seconds\": 0, \"value\": 1, "
    "\"mode\": \"linear\"}]}";

/// The name of a type in a file.
const char* typeName(VARTYPE type) {
    switch (type) {
        case VT_R8:
            return "real";
        case VT_BOOL:
            return "boolean";
        default:
            return "integer";
    }
}

/// The values of a type, for messages.
std::string allowedText(VARTYPE type) {
    if (type == VT_R8) return "a number";
    return type == VT_BOOL ? "true or false" : "a 32-bit integer";
}

[[noreturn]] void refuseState(const std::string& sentence) {
    throw JsonError(sentence);
}

// Writing

Json valueJson(const VARIANT& plain) {
    if (plain.vt == VT_R8) return plain.dblVal;
    return plain.vt == VT_BOOL ? Json(plain.lVal != 0) : Json(plain.lVal);
}

std::string keyText(const DSKey& key) {
    return std::string("{\"") + kTimeMember + "\": " + Json(key.time).dump() + ", \"" +
           kValueMember + "\": " + Json(key.value).dump() + ", \"" + kModeMember +
           "\": " + Json(keyModeName(key.mode)).dump() + "}";
}

std::string stateText(const PropertyState& state) {
    std::string text =
        std::string("{\"") + typeName(state.plain.vt) + "\": " + valueJson(state.plain).dump();
    const char* before = ", \"keys\": [";
    for (const DSKey& key : state.keys) {
        text.append(before).append(keyText(key));
        before = ", ";
    }
    return text + (state.keys.empty() ? "}" : "]}");
}

// Reading

std::optional<VARIANT> plainValue(VARTYPE type, const Json& value) {
    if (type == VT_R8 && value.is_number()) return DSVariantFromReal(value.get<double>());
    if (type == VT_BOOL && value.is_boolean()) return DSVariantFromBool(value.get<bool>());
    if (type != VT_I4 || !value.is_number_integer()) return std::nullopt;
    // A double holds every integer of 32 bits, and keeps larger ones out of their range.
    const double number = value.get<double>();
    if (number < INT32_MIN || number > INT32_MAX) return std::nullopt;
    return DSVariantFromLong(static_cast<LONG>(number));
}

VARIANT readPlain(const CDSParamDef& definition, const Json& state) {
    const char* const type = typeName(definition.type);
    if (!state.is_object() || !state.contains(type)) {
        refuseState("the property " + toText(definition.id) + " takes its value as " +
                    files::inQuotes(type) + ", not " + state.dump() + ".");
    }
    const auto value = plainValue(definition.type, state[type]);
    if (!value) {
        refuseState("the property " + toText(definition.id) + " takes " +
                    allowedText(definition.type) + ", not " + state[type].dump() + ".");
    }
    return *value;
}

std::optional<DSKey> keyOfJson(const Json& key) {
    if (!key.is_object() || key.size() != 3) return std::nullopt;
    for (const char* member : {kTimeMember, kValueMember}) {
        if (!key.contains(member) || !key[member].is_number()) return std::nullopt;
    }
    if (!key.contains(kModeMember) || !key[kModeMember].is_string()) return std::nullopt;
    const auto mode = keyModeNamed(key[kModeMember].get<std::string>());
    if (!mode) return std::nullopt;
    return DSKey{key[kTimeMember].get<double>(), key[kValueMember].get<double>(), *mode};
}

std::vector<DSKey> readKeys(const CDSParamDef& definition, const Json& list) {
    const std::string property = "the property " + toText(definition.id);
    if (!definition.animatable()) refuseState(property + " cannot have keys.");
    if (!list.is_array()) refuseState(property + " takes a list of keys, not " + list.dump() + ".");
    std::vector<DSKey> keys;
    for (const Json& entry : list) {
        const auto key = keyOfJson(entry);
        if (!key) {
            refuseState(entry.dump() + " is not a key of " + property + ". Write a state as in " +
                        kStateForm + ".");
        }
        keys.push_back(*key);
    }
    std::ranges::sort(keys, {}, &DSKey::time);
    const auto twice = std::ranges::adjacent_find(keys, {}, &DSKey::time);
    if (twice != keys.end()) {
        refuseState(property + " has two keys at " + Json(twice->time).dump() + " s.");
    }
    return keys;
}

PropertyState readPropertyState(const CDSParamDef& definition, const Json& json) {
    PropertyState state{definition.id, readPlain(definition, json), {}};
    if (json.contains(kKeysMember)) state.keys = readKeys(definition, json[kKeysMember]);
    if (json.size() > (json.contains(kKeysMember) ? 2u : 1u)) {
        refuseState("the state of the property " + toText(definition.id) +
                    " has unknown members. Write a state as in " + kStateForm + ".");
    }
    return state;
}

void checkVersion(const Json& document) {
    if (!document.is_object() || !document.contains(kVersionMember)) {
        refuseState(std::string("this is not a state file: it has no member ") +
                    files::inQuotes(kVersionMember) + ".");
    }
    const Json& version = document[kVersionMember];
    // As a double, since the library compares large unsigned numbers as negative ones.
    const double number = version.is_number_integer() ? version.get<double>() : 0.0;
    if (number < 1.0) refuseState("there is no version " + version.dump() + ".");
    if (number > kStateFileVersion) {
        refuseState("this state file is of version " + version.dump() +
                    ", and this program reads versions up to " + std::to_string(kStateFileVersion) +
                    ". Use a later one.");
    }
}

const CDSParamDef& storedDefinition(const std::string& name, const FindDefinition& find) {
    const auto id = parseGuid(name);
    if (!id) refuseState(files::inQuotes(name) + " is not the identifier of a property.");
    const CDSParamDef* const definition = find(*id);
    if (!definition) refuseState("the effect has no property " + files::inQuotes(name) + ".");
    if (!runtime::isStored(*definition)) {
        refuseState("the property " + files::inQuotes(name) + " is not part of a state.");
    }
    return *definition;
}

std::vector<PropertyState> statesFromJson(const Json& document, const FindDefinition& find) {
    checkVersion(document);
    std::vector<PropertyState> states;
    for (const auto& [name, json] : document.items()) {
        if (name == kVersionMember) continue;
        const CDSParamDef& definition = storedDefinition(name, find);
        // The digits of an identifier may be in upper and in lower case.
        if (std::ranges::find(states, definition.id, &PropertyState::id) != states.end()) {
            refuseState("the property " + files::inQuotes(name) + " occurs twice.");
        }
        states.push_back(readPropertyState(definition, json));
    }
    return states;
}

}  // namespace

std::string stateFileText(std::span<const PropertyState> states) {
    std::string text =
        std::string("{\n  \"") + kVersionMember + "\": " + std::to_string(kStateFileVersion);
    for (const PropertyState& state : states) {
        text.append(",\n  \"").append(toText(state.id)).append("\": ").append(stateText(state));
    }
    return text + "\n}\n";
}

std::vector<PropertyState> parseStateFile(const std::string& name, const std::string& text,
                                          const FindDefinition& find) {
    try {
        return statesFromJson(parseJson(text), find);
    } catch (const JsonError& error) {
        throw StateFileError(name + ": " + error.what());
    }
}

std::vector<PropertyState> readStateFile(const runtime::EffectSession& session,
                                         const std::filesystem::path& file) {
    return parseStateFile(file.string(), readJsonText(file),
                          [&](const GUID& id) { return session.definition(id); });
}

}  // namespace ruvex::looks
