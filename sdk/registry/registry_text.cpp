// The registry's contents as text.

#include <charconv>
#include <initializer_list>

#include "sdk/com/utf8.h"
#include "sdk/registry/registry_contents.h"

namespace ruvex {
namespace {

constexpr std::string_view kHead = "V_Ruvex registry 1\n";
constexpr std::string_view kClass = "class";
constexpr std::string_view kFamily = "family";

/// The text with tabs and line ends escaped.
std::string escaped(std::string_view text) {
    std::string field;
    for (const char c : text) {
        switch (c) {
            case '\t':
                field += "\\t";
                break;
            case '\n':
                field += "\\n";
                break;
            case '\\':
                field += "\\\\";
                break;
            default:
                field += c;
        }
    }
    return field;
}

void appendLine(std::string& text, std::initializer_list<std::string> fields) {
    char before = '\0';
    for (const std::string& field : fields) {
        if (before) text += before;
        text += escaped(field);
        before = '\t';
    }
    text += '\n';
}

std::optional<std::string> unescaped(std::string_view field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            text += field[i];
            continue;
        }
        const char c = ++i < field.size() ? field[i] : '\0';
        if (c != 't' && c != 'n' && c != '\\') return std::nullopt;
        text += c == 't' ? '\t' : c == 'n' ? '\n' : '\\';
    }
    return text;
}

std::vector<std::string_view> split(std::string_view line) {
    std::vector<std::string_view> fields;
    for (std::size_t tab; (tab = line.find('\t')) != std::string_view::npos;) {
        fields.push_back(line.substr(0, tab));
        line.remove_prefix(tab + 1);
    }
    fields.push_back(line);
    return fields;
}

template <class Number>
std::optional<Number> numberOf(std::string_view field) {
    Number number = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    if (error != std::errc() || end != field.data() + field.size()) return std::nullopt;
    return number;
}

using Fields = std::vector<std::string_view>;

bool readClass(const Fields& fields, DSRegistryContents& contents) {
    if (fields.size() != 5) return false;
    const auto classId = parseGuid(fields[1]);
    const auto stringId = numberOf<UINT>(fields[2]);
    const auto description = unescaped(fields[3]);
    const auto module = unescaped(fields[4]);
    if (!classId || !stringId || !description || !module) return false;
    contents.classes.push_back({*classId, *stringId, fromUtf8(*description), *module});
    return true;
}

bool readFamily(const Fields& fields, DSRegistryContents& contents) {
    if (fields.size() != 5) return false;
    const auto classId = parseGuid(fields[1]);
    const auto family = parseGuid(fields[2]);
    const auto version = numberOf<ULONG>(fields[3]);
    const auto name = unescaped(fields[4]);
    if (!classId || !family || !version || !name) return false;
    contents.families.push_back({*classId, *family, *version, fromUtf8(*name)});
    return true;
}

bool readLine(std::string_view line, DSRegistryContents& contents) {
    const Fields fields = split(line);
    if (fields[0] == kClass) return readClass(fields, contents);
    return fields[0] == kFamily && readFamily(fields, contents);
}

}  // namespace

std::string registryText(const DSRegistryContents& contents) {
    std::string text(kHead);
    for (const DSRegisteredClass& entry : contents.classes) {
        appendLine(text,
                   {std::string(kClass), toText(entry.classId), std::to_string(entry.stringId),
                    toUtf8(entry.description), entry.module.string()});
    }
    for (const DSRegisteredFamily& entry : contents.families) {
        appendLine(text, {std::string(kFamily), toText(entry.classId), toText(entry.family),
                          std::to_string(entry.version), toUtf8(entry.name)});
    }
    return text;
}

std::optional<DSRegistryContents> parseRegistry(std::string_view text) {
    if (!text.starts_with(kHead)) return std::nullopt;
    std::string_view rest = text.substr(kHead.size());
    DSRegistryContents contents;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) return std::nullopt;
        if (!readLine(rest.substr(0, end), contents)) return std::nullopt;
        rest.remove_prefix(end + 1);
    }
    // Accept only what registryText writes: other spellings of a number or identifier, or another
    // order of lines, are refused.
    return registryText(contents) == text ? std::optional(contents) : std::nullopt;
}

}  // namespace ruvex
