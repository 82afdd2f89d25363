#include "adapters/frei0r/parameter_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "adapters/common/parameter_name.h"
#include "parameters/parameter_table.h"

namespace ruvex::frei0r {
namespace {

using testing::HasSubstr;

struct Released {
    const char* name;
    ParameterType type;

    friend bool operator==(const Released& a, const Released& b) {
        return std::string_view(a.name) == b.name && a.type == b.type;
    }
    friend void PrintTo(const Released& released, std::ostream* out) { *out << released.name; }
};

constexpr auto kBool = ParameterType::Bool;
constexpr auto kDouble = ParameterType::Double;
constexpr auto kColour = ParameterType::Colour;
constexpr auto kString = ParameterType::String;

/// What was released. Projects and command lines rely on names, types and order: lines are only
/// ever added, at the end.
constexpr Released kReleased[] = {
    {"look", kString},
    {"master-breakup", kDouble},
    {"fps", kString},
    {"effect-alpha", kBool},
    {"breakup-variation", kDouble},
    {"breakup-speed", kDouble},
    {"seed", kDouble},
    {"tv-type", kString},
    {"tint-colour", kColour},
    {"tv-contrast", kDouble},
    {"tv-brightness", kDouble},
    {"tv-colour", kDouble},
    {"snow-max", kDouble},
    {"snow-threshold", kDouble},
    {"snow-softness", kDouble},
    {"snow-sparseness", kDouble},
    {"colour-degrade-max", kDouble},
    {"colour-threshold", kDouble},
    {"num-ghosts", kDouble},
    {"ghosting-threshold", kDouble},
    {"ghosting-distance-max", kDouble},
    {"ghosting-strength", kDouble},
    {"ghosting-speed", kDouble},
    {"edge-distortion-max", kDouble},
    {"edge-jaggedness", kDouble},
    {"edge-threshold", kDouble},
    {"edge-speed", kDouble},
    {"line-angle", kDouble},
    {"line-spacing", kDouble},
    {"line-speed-max", kDouble},
    {"line-threshold", kDouble},
    {"vert-offset-max", kDouble},
    {"vert-offset-threshold", kDouble},
    {"vert-roll-speed-max", kDouble},
    {"vert-roll-threshold", kDouble},
    {"shash-type", kString},
    {"shash-period", kDouble},
    {"shash-amount-max", kDouble},
    {"shash-threshold", kDouble},
    {"resolution", kDouble},
    {"blur", kDouble},
    {"scanline-width", kDouble},
    {"em-interference", kDouble},
    {"white-dot", kDouble},
    {"fish-eye", kBool},
    {"fish-eye-radius", kDouble},
    {"fish-eye-power", kDouble},
    {"filter", kBool},
    {"play-mode", kString},
    {"play-speed", kDouble},
    {"repeat-frames", kDouble},
    {"border-alpha", kString},
    {"tv-brightness-red", kDouble},
    {"tv-brightness-green", kDouble},
    {"tv-brightness-blue", kDouble},
    {"gun-align-red-x", kDouble},
    {"gun-align-red-y", kDouble},
    {"gun-align-green-x", kDouble},
    {"gun-align-green-y", kDouble},
    {"gun-align-blue-x", kDouble},
    {"gun-align-blue-y", kDouble},
    {"crop-left", kDouble},
    {"crop-right", kDouble},
    {"crop-bottom", kDouble},
    {"crop-top", kDouble},
    {"x-edge-method", kString},
    {"y-edge-method", kString},
    {"crop-colour", kColour},
    {"blank-cropped", kBool},
    {"display-cropped", kBool},
    {"mask-red", kBool},
    {"mask-green", kBool},
    {"mask-blue", kBool},
    {"mask-alpha", kBool},
    {"time-unit", kString},
    {"look-file", kString},
    {"override", kString},
};

TEST(ParameterList, IsTheReleasedOne) {
    std::vector<Released> listed;
    for (const ListedParameter& parameter : parameterList()) {
        listed.push_back({parameter.name.c_str(), parameter.type});
    }
    EXPECT_THAT(listed, testing::ElementsAreArray(kReleased));
}

TEST(ParameterList, HasEveryParameterThatRendersOnce) {
    std::set<ParameterId> listed;
    std::size_t rows = 0;
    for (const ListedParameter& parameter : parameterList()) {
        if (!parameter.row) continue;
        ++rows;
        listed.insert(parameter.row->id);
    }
    EXPECT_EQ(listed.size(), rows);
    for (const ParameterRow& row : parameterTable()) {
        const bool ofItsColour = adapters::isColourChannel(row) && !adapters::beginsColour(row);
        EXPECT_EQ(listed.count(row.id), row.rendered && !ofItsColour ? 1u : 0u) << row.label;
    }
}

TEST(ParameterList, NamesNeedNoQuotes) {
    for (const ListedParameter& parameter : parameterList()) {
        EXPECT_THAT(parameter.name, testing::MatchesRegex("[a-z][a-z-]*"));
        EXPECT_FALSE(parameter.explanation.empty()) << parameter.name;
    }
}

TEST(ParameterList, DefaultsFitTheTypes) {
    for (const ListedParameter& parameter : parameterList()) {
        const std::size_t kind = parameter.type == kColour ? 1 : parameter.type == kString ? 2 : 0;
        ASSERT_EQ(parameter.defaultValue.index(), kind) << parameter.name;
        if (kind != 0) continue;
        const double value = std::get<double>(parameter.defaultValue);
        EXPECT_TRUE(value >= 0.0 && value <= 1.0) << parameter.name;
    }
}

TEST(ParameterList, ExplanationsGiveTheRange) {
    for (const ListedParameter& parameter : parameterList()) {
        if (parameter.name == "snow-max") {
            EXPECT_THAT(parameter.explanation,
                        HasSubstr("0 to 1 is -200 to 200 %; default: 60 %."));
        }
        if (parameter.name == "tv-type") {
            EXPECT_THAT(parameter.explanation,
                        HasSubstr(R"("Colour", "B & W", "Tint" or 0..2; default: Colour.)"));
        }
    }
}

}  // namespace
}  // namespace ruvex::frei0r
