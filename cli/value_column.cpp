#include "cli/value_column.h"

#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

#include "cli/text_table.h"
#include "parameters/artefacts.h"
#include "parameters/parameter_table.h"

namespace ruvex::cli {
namespace {

using V = FrameValues;

constexpr ValueColumn kBeforeAmounts[] = {
    {"frame", "frame", "", 0, &V::frame},          {"time", "time", "s", 4, &V::seconds},
    {"play_time", "played", "s", 4, &V::playTime}, {"source_frame", "source", "", 0, &V::source},
    {"shown_frame", "shown", "", 0, &V::shown},    {"level", "level", "", 4, &V::level},
};

constexpr ValueColumn kAfterAmounts[] = {
    {"line_travel", "crept", "px", 2, &V::lineTravel},
    {"vertical_sum", "rolled", "px", 0, &V::verticalSum},
    {"shash_frames", "shashed", "frames", 0, &V::shashFramesOn},
};

ValueColumn columnOf(const Artefact& artefact) {
    constexpr int kDecimalsOfFraction = 4;
    constexpr int kDecimalsOfLength = 2;
    return {artefact.amountName, artefact.id, unitText(artefact.unit),
            artefact.isFraction() ? kDecimalsOfFraction : kDecimalsOfLength, artefact.amount};
}

std::vector<ValueColumn> makeColumns() {
    std::vector<ValueColumn> columns(std::begin(kBeforeAmounts), std::end(kBeforeAmounts));
    for (const Artefact& artefact : artefacts()) {
        columns.push_back(columnOf(artefact));
    }
    columns.insert(columns.end(), std::begin(kAfterAmounts), std::end(kAfterAmounts));
    return columns;
}

/// Longer than any number, the largest double with a few decimals included.
using Digits = std::array<char, 400>;

template <class... Format>
std::string numberText(Format... format) {
    Digits digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), format...).ptr;
    return {digits.data(), end};
}

std::string fixedText(double value, int decimals) {
    // No minus before a value that is shown as zero.
    const bool nothing = std::fabs(value) < 0.5 * std::pow(10.0, -decimals);
    return numberText(nothing ? 0.0 : value, std::chars_format::fixed, decimals);
}

}  // namespace

std::span<const ValueColumn> valueColumns() {
    static const std::vector<ValueColumn> columns = makeColumns();
    return columns;
}

std::string exactText(const ValueColumn& column, const FrameValues& values) {
    return std::visit([&](auto member) { return numberText(values.*member); }, column.member);
}

std::string roundedText(const ValueColumn& column, const FrameValues& values) {
    return std::visit(
        [&](auto member) {
            const auto value = values.*member;
            if constexpr (std::is_integral_v<decltype(value)>) {
                return numberText(value);
            } else {
                return fixedText(value, column.decimals);
            }
        },
        column.member);
}

std::string csvOf(const std::vector<FrameValues>& series) {
    std::string text;
    for (const ValueColumn& column : valueColumns()) {
        if (!text.empty()) text += ',';
        text += column.name;
    }
    for (const FrameValues& values : series) {
        char mark = '\n';
        for (const ValueColumn& column : valueColumns()) {
            text += mark;
            text += exactText(column, values);
            mark = ',';
        }
    }
    return text + '\n';
}

std::string tableOf(const std::vector<FrameValues>& series) {
    std::vector<TextRow> rows(2);
    for (const ValueColumn& column : valueColumns()) {
        rows[0].emplace_back(column.heading);
        rows[1].emplace_back(column.unit);
    }
    for (const FrameValues& values : series) {
        TextRow& cells = rows.emplace_back();
        for (const ValueColumn& column : valueColumns()) {
            cells.push_back(roundedText(column, values));
        }
    }
    return alignedTable(rows);
}

}  // namespace ruvex::cli
