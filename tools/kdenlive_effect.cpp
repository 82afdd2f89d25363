// Writes the description of the frei0r plug-in that Kdenlive reads: titles, ranges, decimals,
// lists.
//
//   kdenlive_effect LOOKS_FOLDER FILE      LOOKS_FOLDER holds the shipped looks

#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/common/parameter_name.h"
#include "adapters/frei0r/parameter_list.h"
#include "looks/look_library.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"

namespace ruvex {
namespace {

using frei0r::ListedParameter;
using frei0r::OwnParameter;
using frei0r::ParameterType;

/// Ranges wider than this have no decimals that anybody could tell apart.
constexpr double kWideRange = 500.0;

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string attribute(std::string_view name, std::string_view value) {
    std::string text(1, ' ');
    return text.append(name).append("=\"").append(escaped(value)).append("\"");
}

/// One parameter: the attributes after its type and name, and what stands inside besides the title.
struct Entry {
    std::string type;
    std::string attributes;
    std::string inside = "";
};

std::string joined(const std::vector<std::string>& parts, char separator) {
    std::string all;
    for (const std::string& part : parts) {
        if (&part != &parts.front()) all += separator;
        all += part;
    }
    return all;
}

/// The user sees `shown` and the plug-in gets the same text of `values`.
Entry list(const std::vector<std::string>& values, const std::vector<std::string>& shown,
           std::string_view defaultValue) {
    return {"list",
            attribute("default", defaultValue) + attribute("paramlist", joined(values, ';')),
            "    <paramlistdisplay>" + escaped(joined(shown, ',')) + "</paramlistdisplay>\n"};
}

Entry list(const std::vector<std::string>& values, std::string_view defaultValue) {
    return list(values, values, defaultValue);
}

/// Kdenlive shows the value from 0 to 1 times a factor and adds nothing, so that what it shows is
/// the distance from the low end of the range.
Entry number(const ListedParameter& parameter) {
    const ParameterRow& row = *parameter.row;
    const double factor = row.controlRange->high - row.controlRange->low;
    const int decimals = row.decimals.value_or(factor > kWideRange ? 1 : 2);
    Entry entry{row.kind == ParameterKind::Real ? "animated" : "constant",
                attribute("default", formatNumber(std::get<double>(parameter.defaultValue))) +
                    attribute("min", "0") + attribute("max", formatNumber(factor)) +
                    attribute("factor", formatNumber(factor)) +
                    attribute("decimals", std::to_string(decimals))};
    const std::string_view unit = unitText(row.unit);
    if (!unit.empty()) entry.attributes += attribute("suffix", std::string(1, ' ').append(unit));
    return entry;
}

/// "TV Contrast + 100" for a range from -100: what the number shown is.
std::string numberTitle(const ParameterRow& row) {
    const double low = row.controlRange ? row.controlRange->low : 0.0;
    std::string title(row.label);
    if (low == 0.0) return title;
    return title.append(low < 0.0 ? " + " : " - ").append(formatNumber(std::abs(low)));
}

Entry colour(const ListedParameter& parameter) {
    const auto value = std::get<frei0r::Colour>(parameter.defaultValue);
    const auto byte = [](float channel) { return static_cast<unsigned>(channel * 255.0f + 0.5f); };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(value.r) & 0xFF, byte(value.g) & 0xFF,
                  byte(value.b) & 0xFF);
    return {"color", attribute("default", text)};
}

Entry choice(const ListedParameter& parameter) {
    std::vector<std::string> labels;
    for (const Choice& one : parameter.row->choices) labels.emplace_back(one.label);
    return list(labels, std::get<std::string>(parameter.defaultValue));
}

Entry yesOrNo(const ListedParameter& parameter) {
    const bool on = std::get<double>(parameter.defaultValue) != 0.0;
    return {"bool", attribute("default", on ? "1" : "0")};
}

Entry ownEntry(const ListedParameter& parameter, const std::vector<std::string>& looks) {
    switch (parameter.own) {
        case OwnParameter::Look:
            return list(looks, "none");
        case OwnParameter::Fps:
            return list(
                {"24000/1001", "24", "25", "30000/1001", "30", "48", "50", "60000/1001", "60"},
                {"23.976", "24", "25", "29.97", "30", "48", "50", "59.94", "60"}, "25");
        case OwnParameter::EffectAlpha:
            return yesOrNo(parameter);
        case OwnParameter::TimeUnit:
            // Kdenlive's times are in seconds, so that there is nothing to guess.
            return list({"auto", "seconds", "milliseconds"}, "seconds");
        case OwnParameter::LookFile:
            return {"url", attribute("default", "") + attribute("filter", "*.json")};
        case OwnParameter::Override:
            return list({"none", "all"}, "none");
    }
    return {};
}

std::string_view ownTitle(OwnParameter own) {
    switch (own) {
        case OwnParameter::Look:
            return "Look";
        case OwnParameter::Fps:
            return "Frames per Second";
        case OwnParameter::EffectAlpha:
            return "Effect Alpha";
        case OwnParameter::TimeUnit:
            return "Time Unit";
        case OwnParameter::LookFile:
            return "Look File";
        case OwnParameter::Override:
            return "Override Look";
    }
    return {};
}

Entry entryOf(const ListedParameter& parameter, const std::vector<std::string>& looks) {
    if (!parameter.row) return ownEntry(parameter, looks);
    switch (parameter.type) {
        case ParameterType::Bool:
            return yesOrNo(parameter);
        case ParameterType::Double:
            return number(parameter);
        case ParameterType::Colour:
            return colour(parameter);
        case ParameterType::String:
            return choice(parameter);
    }
    return {};
}

std::string titleOf(const ListedParameter& parameter) {
    if (!parameter.row) return std::string(ownTitle(parameter.own));
    if (parameter.type != ParameterType::Colour) return numberTitle(*parameter.row);
    return std::string(adapters::colourLabel(*parameter.row));
}

std::string parameterText(const ListedParameter& parameter, const std::vector<std::string>& looks) {
    const Entry entry = entryOf(parameter, looks);
    return "  <parameter" + attribute("type", entry.type) + attribute("name", parameter.name) +
           entry.attributes + ">\n" + entry.inside + "    <name>" + escaped(titleOf(parameter)) +
           "</name>\n    <comment>" + escaped(parameter.explanation) +
           "</comment>\n  </parameter>\n";
}

std::string effectText(const std::vector<std::string>& looks) {
    std::string text =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE kpartgui>\n"
        "<!-- Made by tools/kdenlive_effect from the parameter table; do not edit. -->\n"
        "<effect tag=\"frei0r.ruvex\" id=\"frei0r.ruvex\">\n"
        "  <name>V_Ruvex</name>\n"
        "  <description>Makes the picture look like faulty television</description>\n"
        "  <author>The V_Ruvex authors</author>\n";
    for (const ListedParameter& parameter : frei0r::parameterList()) {
        text += parameterText(parameter, looks);
    }
    return text + "</effect>\n";
}

std::vector<std::string> lookNames(const char* folder) {
    std::vector<std::string> names = {"none"};
    const auto library = looks::readLookLibrary({.shipped = folder});
    for (const auto name : library.names()) names.emplace_back(name);
    return names;
}

}  // namespace
}  // namespace ruvex

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: kdenlive_effect LOOKS_FOLDER FILE\n", stderr);
        return 2;
    }
    try {
        std::ofstream file(argv[2], std::ios::binary);
        file << ruvex::effectText(ruvex::lookNames(argv[1])) << std::flush;
        return file ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    return 1;
}
