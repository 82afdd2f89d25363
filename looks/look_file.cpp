#include "looks/look_file.h"

#include <set>

#include "files/words.h"
#include "looks/look_members.h"
#include "parameters/parameter_text.h"

namespace ruvex::looks {
namespace {

constexpr const char* kSeconds = "seconds";
constexpr const char* kValue = "value";
constexpr const char* kMode = "mode";
constexpr const char* kKeysForm = "[{\"seconds\": 0, \"value\": 100}, ...]";

[[noreturn]] void fail(const std::string& sentence) {
    throw JsonError(sentence);
}

[[noreturn]] void refuse(const ParameterRow& row, const Json& value) {
    const std::string takes = isCheckBox(row.kind) ? "true or false" : allowedValues(row);
    fail(std::string(row.label) + " takes " + takes + ", not " + value.dump() + ".");
}

/// The value as text in the form that parseValue reads.
std::string textOf(const ParameterRow& row, const Json& value) {
    if (isCheckBox(row.kind) && value.is_boolean()) return value.get<bool>() ? "on" : "off";
    if (!row.choices.empty() && value.is_string()) return value.get<std::string>();
    if (isCheckBox(row.kind) || !value.is_number()) refuse(row, value);
    return value.dump();
}

double valueOf(const ParameterRow& row, const Json& value, std::vector<std::string>& warnings) {
    const ParsedValue parsed = parseValue(row, textOf(row, value));
    if (!parsed.usable()) fail(parsed.message);
    if (parsed.severity == ParsedValue::Severity::Warning) warnings.push_back(parsed.message);
    return parsed.value;
}

/// Whether it has the members of a key and no others. The mode may be left out.
bool isKey(const Json& key) {
    if (!key.is_object() || !key.contains(kSeconds) || !key.contains(kValue)) return false;
    return key[kSeconds].is_number() && key.size() == (key.contains(kMode) ? 3u : 2u);
}

KeyMode modeOf(const ParameterRow& row, const Json& key) {
    if (!key.contains(kMode)) return KeyMode::Linear;
    const Json& name = key[kMode];
    const auto mode = name.is_string() ? keyModeNamed(name.get<std::string>()) : std::nullopt;
    if (!mode) {
        fail(name.dump() + " is not a mode of a key of " + std::string(row.label) + ". Write " +
             keyModeNames() + ".");
    }
    return *mode;
}

Key keyOf(const ParameterRow& row, const Json& key, std::vector<std::string>& warnings) {
    if (!isKey(key)) {
        fail(key.dump() + " is not a key of " + std::string(row.label) + ". Write keys as in " +
             kKeysForm + ".");
    }
    return {key[kSeconds].get<double>(), valueOf(row, key[kValue], warnings), modeOf(row, key)};
}

Animation animationOf(const ParameterRow& row, const Json& keys,
                      std::vector<std::string>& warnings) {
    const std::string label(row.label);
    if (!isReal(row.kind)) {
        fail(label + " cannot be animated; only real parameters can.");
    }
    if (keys.empty()) {
        fail(label + " has no keys. Write them as in " + kKeysForm + ".");
    }
    Animation animation{row.id, {}};
    for (const Json& key : keys) {
        animation.keys.push_back(keyOf(row, key, warnings));
    }
    if (const Key* twice = sortKeys(animation)) {
        fail(label + " has two keys at " + formatNumber(twice->seconds) + " s.");
    }
    return animation;
}

ParameterChange changeOf(const ParameterRow& row, const Json& value,
                         std::vector<std::string>& warnings) {
    if (value.is_array()) return animationOf(row, value, warnings);
    const Setting setting{row.id, valueOf(row, value, warnings)};
    if (!row.rendered && setting.value != row.defaultValue) {
        warnings.push_back(doesNotRender(row));
    }
    return setting;
}

Json toJson(const Setting& setting) {
    const ParameterRow& row = ruvex::row(setting.id);
    if (isCheckBox(row.kind)) return setting.value != 0.0;
    if (!row.choices.empty()) return formatValue(row, setting.value);
    return isReal(row.kind) ? Json(setting.value) : Json(static_cast<int>(setting.value));
}

std::string jsonOf(const Setting& setting) {
    return toJson(setting).dump();
}

/// Nothing for a linear key.
std::string modeMember(KeyMode mode) {
    if (mode == KeyMode::Linear) return "";
    return std::string(", \"") + kMode + "\": " + Json(keyModeName(mode)).dump();
}

/// One line. The library's writer would leave out the spaces or give each key four lines.
std::string jsonOf(const Animation& animation) {
    std::string text;
    for (const Key& key : animation.keys) {
        text.append(text.empty() ? "[" : ", ").append("{\"").append(kSeconds).append("\": ");
        text.append(Json(key.seconds).dump()).append(", \"").append(kValue).append("\": ");
        text.append(Json(key.value).dump()).append(modeMember(key.mode)).append("}");
    }
    return text + "]";
}

/// Adds a line with a member to an object that is open, indented by `space` and two spaces.
void addMember(std::string& object, const std::string& space, std::string_view name,
               const std::string& json) {
    object.append(object.size() == 1 ? "\n" : ",\n").append(space).append("  ");
    object.append(Json(name).dump()).append(": ").append(json);
}

void addChanges(std::string& object, std::span<const ParameterChange> changes,
                const std::string& space) {
    for (const ParameterChange& change : changes) {
        addMember(object, space, rowOf(change).label,
                  std::visit([](const auto& either) { return jsonOf(either); }, change));
    }
}

}  // namespace

std::vector<ParameterChange> changesFromJson(const Json& document,
                                             std::vector<std::string>& warnings) {
    if (!document.is_object()) {
        fail("parameters are one object of labels and values, as in {\"Resolution\": 50}.");
    }
    std::vector<ParameterChange> changes;
    std::set<const ParameterRow*> seen;
    for (const auto& [name, value] : document.items()) {
        const ParameterRow* row = findParameter(name);
        if (row == nullptr) fail(noSuchParameter(name));
        if (!seen.insert(row).second) {
            fail(files::inQuotes(row->label) + " occurs twice.");
        }
        changes.push_back(changeOf(*row, value, warnings));
    }
    return changes;
}

Look parseLookFile(const std::string& name, const std::string& text,
                   std::vector<std::string>& warnings) {
    std::vector<std::string> found;
    try {
        Look look;
        Json document = parseJson(text);
        takeLookMembers(document, look);
        look.changes = changesFromJson(document, found);
        for (const std::string& warning : found) {
            warnings.push_back(name + ": " + warning);
        }
        return look;
    } catch (const JsonError& error) {
        throw LookFileError(name + ": " + error.what());
    }
}

Look readLookFile(const std::filesystem::path& file, std::vector<std::string>& warnings) {
    return parseLookFile(file.string(), readJsonText(file), warnings);
}

std::string lookText(std::span<const ParameterChange> changes, int indent) {
    const std::string space(static_cast<std::size_t>(indent), ' ');
    std::string text = "{";
    addChanges(text, changes, space);
    return text + "\n" + space + "}";
}

std::string lookFileText(const Look& look) {
    std::string text = "{";
    forEachLookMember(
        look, [&](const char* name, const std::string& json) { addMember(text, "", name, json); });
    addChanges(text, look.changes, "");
    return text + "\n}\n";
}

}  // namespace ruvex::looks
