#include "cli/params_command.h"

#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/messages.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

using Json = nlohmann::ordered_json;

const char* kindName(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::Real:
            return "real";
        case ParameterKind::Int:
        case ParameterKind::UiInt:
            return "int";
        case ParameterKind::Enum:
            return "enum";
        default:
            return "bool";
    }
}

void pad(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    std::cout << text << "  ";
}

void printTable() {
    constexpr std::size_t kLabelWidth = 22;
    constexpr std::size_t kKindWidth = 4;
    constexpr std::size_t kDefaultWidth = 8;
    pad("Parameter", kLabelWidth);
    pad("Kind", kKindWidth);
    pad("Default", kDefaultWidth);
    std::cout << "Takes\n";
    for (const ParameterRow& row : parameterTable()) {
        pad(std::string(row.label), kLabelWidth);
        pad(kindName(row.kind), kKindWidth);
        pad(formatValue(row, row.defaultValue), kDefaultWidth);
        std::cout << allowedValues(row) << '\n';
    }
}

/// JSON has no infinity: an open end is null.
Json toJson(const std::optional<Range>& range) {
    if (!range) {
        return nullptr;
    }
    const auto end = [](double value) {
        return std::isfinite(value) ? Json(value) : Json(nullptr);
    };
    return {{"low", end(range->low)}, {"high", end(range->high)}};
}

Json defaultOf(const ParameterRow& row) {
    if (isCheckBox(row.kind)) {
        return row.defaultInt() != 0;
    }
    return isReal(row.kind) ? Json(row.defaultValue) : Json(row.defaultInt());
}

Json toJson(const ParameterRow& row) {
    Json choices = Json::array();
    for (const Choice& choice : row.choices) {
        choices.push_back(choice.label);
    }
    return {{"label", row.label},
            {"id", toText(row.identifier)},
            {"kind", kindName(row.kind)},
            {"default", defaultOf(row)},
            {"range", toJson(row.enteredRange())},
            {"clamp", toJson(row.clamp)},
            {"unit", unitText(row.unit)},
            {"choices", choices},
            {"animated", isReal(row.kind)},
            {"rendered", row.rendered},
            {"hint", row.hint}};
}

void printJson() {
    Json table = Json::array();
    for (const ParameterRow& row : parameterTable()) {
        table.push_back(toJson(row));
    }
    std::cout << table.dump(2) << '\n';
}

}  // namespace

Command paramsCommand() {
    const auto json = std::make_shared<bool>(false);
    return {.name = "params",
            .summary = "List the parameters",
            .options = {{"--json", "", "As JSON, with identifiers, ranges and hints", json.get()}},
            .notes = "",
            .examples = {},
            .run = [json] {
                *json ? printJson() : printTable();
                return finishOutput();
            }};
}

}  // namespace ruvex::cli
