#include "cli/parameter_file.h"

#include <nlohmann/json.hpp>
#include <set>

#include "cli/messages.h"
#include "media/partial_file.h"
#include "media/printable.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

// Keeps the order of the file.
using Json = nlohmann::ordered_json;

/// Every parameter with thousands of keys has room in it; a video that was named by mistake has
/// not.
constexpr std::size_t kMostBytes = std::size_t{16} << 20;

/// How deep brackets may stand within each other: deeper than parameters and keys do, and not so
/// deep that writing them into a message would use up the stack.
constexpr int kDeepest = 16;

constexpr const char* kSeconds = "seconds";
constexpr const char* kValue = "value";
constexpr const char* kKeysForm = "[{\"seconds\": 0, \"value\": 100}, ...]";

/// The file may hold anything, so its texts are not shown as they stand.
[[noreturn]] void fail(const std::string& sentence) {
    constexpr std::size_t kMost = 1000;
    throw ParameterFileError(media::printable(sentence, kMost));
}

/// Text to JSON. The library takes the last of two members of one name, and with it a mistake in
/// the file, so the names are watched while it reads.
class Document {
public:
    static Json parse(const std::string& text) {
        Document document;
        return Json::parse(text, [&](int depth, Event event, Json& parsed) {
            if (depth > kDeepest) fail("its brackets stand too deep within each other.");
            document.watch(event, parsed);
            return true;
        });
    }

private:
    using Event = Json::parse_event_t;

    void watch(Event event, const Json& parsed) {
        if (event == Event::object_start) {
            names_.emplace_back();
        } else if (event == Event::object_end) {
            names_.pop_back();
        } else if (event == Event::key) {
            const auto name = parsed.get<std::string>();
            if (!names_.back().insert(name).second) {
                fail(inQuotes(name) + " stands there twice.");
            }
        }
    }

    std::vector<std::set<std::string>> names_;  ///< Of the objects that are open.
};

/// The library's sentence without its own name at the front.
std::string detailOf(const Json::exception& error) {
    const std::string text = error.what();
    const auto end = text.find("] ");
    constexpr std::size_t kMost = 400;
    return media::printable(end == std::string::npos ? text : text.substr(end + 2), kMost);
}

[[noreturn]] void refuse(const ParameterRow& row, const Json& value) {
    const std::string takes = isCheckBox(row.kind) ? "true or false" : allowedValues(row);
    fail(std::string(row.label) + " takes " + takes + ", not " + value.dump() + ".");
}

/// The value as --set would be given it.
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

Key keyOf(const ParameterRow& row, const Json& key, std::vector<std::string>& warnings) {
    const bool good = key.is_object() && key.size() == 2 && key.contains(kSeconds) &&
                      key.contains(kValue) && key[kSeconds].is_number();
    if (!good) {
        fail(key.dump() + " is not a key of " + std::string(row.label) + ". Write keys as in " +
             kKeysForm + ".");
    }
    return {key[kSeconds].get<double>(), valueOf(row, key[kValue], warnings)};
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
    Animation animation{&row, {}};
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
    const Setting setting{&row, valueOf(row, value, warnings)};
    if (!row.rendered && setting.value != row.defaultValue) {
        warnings.push_back(doesNotRender(row));
    }
    return setting;
}

std::vector<ParameterChange> changesOf(const Json& document, std::vector<std::string>& warnings) {
    if (!document.is_object()) {
        fail("a parameter file is one object of labels and values, as in {\"Resolution\": 50}.");
    }
    std::vector<ParameterChange> changes;
    std::set<const ParameterRow*> seen;
    for (const auto& [name, value] : document.items()) {
        const ParameterRow* row = findParameter(name);
        if (row == nullptr) fail(noSuchParameter(name));
        if (!seen.insert(row).second) {
            fail(inQuotes(row->label) + " stands there twice.");
        }
        changes.push_back(changeOf(*row, value, warnings));
    }
    return changes;
}

Json toJson(const Setting& setting) {
    const ParameterRow& row = *setting.row;
    if (isCheckBox(row.kind)) return setting.value != 0.0;
    if (!row.choices.empty()) return formatValue(row, setting.value);
    return isReal(row.kind) ? Json(setting.value) : Json(static_cast<int>(setting.value));
}

std::string jsonOf(const Setting& setting) {
    return toJson(setting).dump();
}

/// The library's own writer would squeeze them, or give each key four lines.
std::string jsonOf(const Animation& animation) {
    std::string text;
    for (const Key& key : animation.keys) {
        text.append(text.empty() ? "[" : ", ").append("{\"").append(kSeconds).append("\": ");
        text.append(Json(key.seconds).dump()).append(", \"").append(kValue).append("\": ");
        text.append(Json(key.value).dump()).append("}");
    }
    return text + "]";
}

}  // namespace

std::vector<ParameterChange> parseParameterFile(const std::string& name, const std::string& text,
                                                std::vector<std::string>& warnings) {
    std::vector<std::string> found;
    try {
        auto changes = changesOf(Document::parse(text), found);
        for (const std::string& warning : found) {
            warnings.push_back(name + ": " + warning);
        }
        return changes;
    } catch (const ParameterFileError& error) {
        throw ParameterFileError(name + ": " + error.what());
    } catch (const Json::exception& error) {
        throw ParameterFileError(name + ": this is not JSON as it should be: " + detailOf(error) +
                                 ".");
    }
}

std::vector<ParameterChange> readParameterFile(const std::filesystem::path& file,
                                               std::vector<std::string>& warnings) {
    const std::vector<std::byte> bytes = media::readWhole(file, kMostBytes);
    return parseParameterFile(
        file.string(), {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, warnings);
}

std::string parameterFileText(std::span<const ParameterChange> changes) {
    std::string text = "{";
    for (const ParameterChange& change : changes) {
        const Json label = rowOf(change).label;
        text.append(text.size() == 1 ? "\n  " : ",\n  ").append(label.dump()).append(": ");
        text += std::visit([](const auto& either) { return jsonOf(either); }, change);
    }
    return text + "\n}\n";
}

}  // namespace ruvex::cli
