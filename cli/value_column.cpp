#include "cli/value_column.h"

#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

#include "cli/text_table.h"

namespace ruvex::cli {
namespace {

using V = FrameValues;

constexpr ValueColumn kColumns[] = {
    {"frame", "frame", "", 0, &V::frame},
    {"time", "time", "s", 4, &V::seconds},
    {"play_time", "played", "s", 4, &V::playTime},
    {"source_frame", "source", "", 0, &V::source},
    {"shown_frame", "shown", "", 0, &V::shown},
    {"level", "level", "", 4, &V::level},
    {"colour_degrade", "colour", "", 4, &V::colourDegrade},
    {"ghost_distance", "ghosts", "px", 2, &V::ghostDistance},
    {"edge_distortion", "edge", "px", 2, &V::edgeDistortion},
    {"snow", "snow", "", 4, &V::snow},
    {"shash", "shash", "", 4, &V::shash},
    {"line_speed", "lines", "px/s", 2, &V::lineSpeed},
    {"vertical_offset", "offset", "px", 2, &V::verticalOffset},
    {"roll_speed", "roll", "px/s", 2, &V::rollSpeed},
    {"line_travel", "crept", "px", 2, &V::lineTravel},
    {"vertical_sum", "rolled", "px", 0, &V::verticalSum},
    {"shash_frames", "shashed", "frames", 0, &V::shashFramesOn},
};

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
    return kColumns;
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
    for (const ValueColumn& column : kColumns) {
        if (!text.empty()) text += ',';
        text += column.name;
    }
    for (const FrameValues& values : series) {
        char mark = '\n';
        for (const ValueColumn& column : kColumns) {
            text += mark;
            text += exactText(column, values);
            mark = ',';
        }
    }
    return text + '\n';
}

std::string tableOf(const std::vector<FrameValues>& series) {
    std::vector<TextRow> rows(2);
    for (const ValueColumn& column : kColumns) {
        rows[0].push_back(column.heading);
        rows[1].push_back(column.unit);
    }
    for (const FrameValues& values : series) {
        TextRow& cells = rows.emplace_back();
        for (const ValueColumn& column : kColumns) {
            cells.push_back(roundedText(column, values));
        }
    }
    return alignedTable(rows);
}

}  // namespace ruvex::cli
