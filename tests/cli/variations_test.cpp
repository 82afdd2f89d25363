#include "cli/variations.h"

#include <gtest/gtest.h>

#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

std::vector<std::string> labelsOf(const std::string& text) {
    std::vector<std::string> warnings;
    std::vector<std::string> labels;
    for (const Variation& one : parseVariations(text, warnings)) labels.push_back(one.label);
    return labels;
}

std::string refusal(const std::string& text) {
    std::vector<std::string> warnings;
    try {
        parseVariations(text, warnings);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

using Labels = std::vector<std::string>;

TEST(Variations, AreRangesAndLists) {
    EXPECT_EQ(labelsOf("Seed=1..3"), (Labels{"Seed 1", "Seed 2", "Seed 3"}));
    EXPECT_EQ(labelsOf("snow max=-2..-1"), (Labels{"Snow Max -2", "Snow Max -1"}));
    EXPECT_EQ(labelsOf("Seed=5..5"), Labels{"Seed 5"});
    EXPECT_EQ(labelsOf("Snow Max=0, 12.5,60"),
              (Labels{"Snow Max 0", "Snow Max 12.5", "Snow Max 60"}));
    EXPECT_EQ(labelsOf("TV Type=0,b&w,Tint"),
              (Labels{"TV Type Colour", "TV Type B & W", "TV Type Tint"}));
    EXPECT_EQ(labelsOf("Fish Eye=on,off"), (Labels{"Fish Eye on", "Fish Eye off"}));
    EXPECT_EQ(labelsOf("Seed=1..100").size(), 100u);
}

TEST(Variations, HaveTheValues) {
    std::vector<std::string> warnings;
    const auto two = parseVariations("Resolution=50,150", warnings);
    EXPECT_EQ(two[0].setting, (looks::Setting{ParameterId::Resolution, 50}));
    EXPECT_EQ(two[1].setting, (looks::Setting{ParameterId::Resolution, 150}));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(warnings[0].starts_with("--vary: ")) << warnings[0];
}

TEST(Variations, OfAnotherFormAreRefused) {
    for (const char* text :
         {"", "Seed", "=1", "Seed=", "Seed=3..1", "Seed=1..", "Seed=..3", "Seed=1.5..3",
          "Seed=1..2..3", "Seed=1,", "Seed=1,x", "Sneed=1", "TV Type=Colour,Sepia", "Seed=1..101",
          "Seed=-2147483648..2147483647", "Seed=1..99999999999"}) {
        EXPECT_TRUE(refusal(text).starts_with("--vary")) << text << ": " << refusal(text);
    }
    EXPECT_NE(refusal("Seed=" + std::string(200, ',')), "");
}

}  // namespace
}  // namespace ruvex::cli
