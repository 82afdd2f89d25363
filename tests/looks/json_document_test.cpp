#include "looks/json_document.h"

#include <chrono>
#include <gtest/gtest.h>

namespace ruvex::looks {
namespace {

std::string jsonRefusal(const std::string& text) {
    try {
        parseJson(text);
    } catch (const JsonError& error) {
        return error.what();
    }
    return "";
}

std::string nested(int depth) {
    const auto count = static_cast<std::size_t>(depth);
    return std::string(count, '[') + std::string(count, ']');
}

TEST(ParseJson, KeepsWhatTheTextHolds) {
    for (const char* text :
         {"7", "-7", "0.5", "18446744073709551615", "\"a\"", "null", "true", "[]", "{}",
          R"([1,[2,{"b":[],"a":{"d":null,"c":{}}}],{"a":1}])", R"({"z":1,"a":2,"m":[{"z":3}]})"}) {
        EXPECT_EQ(parseJson(text).dump(), text);
    }
}

TEST(ParseJson, RefusesTwoMembersOfOneName) {
    EXPECT_EQ(jsonRefusal(R"({"a": 1, "b": 2, "a": 1})"), "'a' occurs twice.");
    EXPECT_EQ(jsonRefusal(R"([{"a": {"b": 1, "b": {}}}])"), "'b' occurs twice.");
    EXPECT_EQ(jsonRefusal(R"({"a": {"a": [{"a": 1}, {"a": 2}]}, "b": {"a": 3}})"), "");
}

TEST(ParseJson, RefusesWhatIsNotJson) {
    for (const char* text : {"", "{", "[1,]", "{\"a\"}", "1 2", "nul", "[1e999]", "\"\xE9\""}) {
        EXPECT_TRUE(jsonRefusal(text).starts_with("this is not valid JSON: ")) << text;
    }
}

TEST(ParseJson, RefusesDeepNesting) {
    EXPECT_EQ(jsonRefusal(nested(16)), "");
    EXPECT_EQ(jsonRefusal(nested(17)), "the brackets are nested too deeply.");
    EXPECT_EQ(jsonRefusal(nested(100000)), "the brackets are nested too deeply.");
}

// A comparison of each name with all others would take 10^11 steps, which is minutes.
TEST(ParseJson, TakesTimeByTheLengthAlone) {
    constexpr int kMembers = 500'000;
    std::string text = "{";
    for (int i = 0; i < kMembers; ++i) {
        text.append("\"").append(std::to_string(i)).append("\":0,");
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(jsonRefusal(text + "\"7\":0}"), "'7' occurs twice.");
    EXPECT_EQ(parseJson(text + "\"x\":0}").size(), kMembers + 1u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace ruvex::looks
