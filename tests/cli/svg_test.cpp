#include "cli/svg.h"

#include <gtest/gtest.h>
#include <limits>

#include "tests/cli/xml_check.h"

namespace ruvex::cli {
namespace {

TEST(XmlCheck, RefusesWhatIsNotWellFormed) {
    for (const char* text :
         {"", "a", "<a>", "<a></b>", "<a/><b/>", "<a", "<a b=c/>", "<a b=\"c/>", "<a b='c'/>",
          "<a b=\"1\" b=\"2\"/>", "<a b=\"<\"/>", "<a>&nbsp;</a>", "<a>&</a>", "<a>\x01</a>",
          "<a b=\"1\"c=\"2\"/>", "<a><b></a></b>", "<1/>"}) {
        EXPECT_THROW(readXml(text), std::runtime_error) << text;
    }
    const auto elements = readXml("<a b=\"1 &lt; 2\"><c/>x &amp; y</a>\n");
    ASSERT_EQ(elements.size(), 2u);
    EXPECT_EQ(elements[0].attributes.at("b"), "1 < 2");
    EXPECT_EQ(elements[0].text, "x & y");
    EXPECT_EQ(elements[1].name, "c");
}

TEST(SvgNumber, IsShortAndPlain) {
    EXPECT_EQ(svgNumber(0.0), "0");
    EXPECT_EQ(svgNumber(-0.001), "0");
    EXPECT_EQ(svgNumber(1.005e3), "1005");
    EXPECT_EQ(svgNumber(-2.346), "-2.35");
    EXPECT_EQ(svgNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(svgNumber(1e20), "100000000000000000000");
    EXPECT_EQ(svgNumber(std::numeric_limits<double>::infinity()), "0");
    EXPECT_EQ(svgNumber(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(Svg, KeepsAnyWords) {
    const std::string words = "a < b && \"c\" > 'd' \xC3\xA4";
    Svg svg(20.0, 10.0, words);
    svg.text({1.0, 2.5}, words, {{"class", words}});
    const auto elements = readXml(svg.finished());
    ASSERT_EQ(elements.size(), 3u);
    EXPECT_EQ(elements[1].name, "title");
    EXPECT_EQ(elements[1].text, words);
    EXPECT_EQ(elements[2].text, words);
    EXPECT_EQ(elements[2].attributes.at("class"), words);
    EXPECT_EQ(elements[2].attributes.at("y"), "2.5");
}

TEST(Svg, WhatXmlCannotHoldBecomesAQuestionMark) {
    EXPECT_EQ(escapeXml(std::string_view("a\0b\x1F\tc\n", 7)), "a?b?\tc\n");
}

TEST(Svg, DrawsEachShape) {
    Svg svg(100.0, 50.0, "shapes");
    svg.rectangle({1.0, 2.0}, 3.0, 4.0, {{"fill", "red"}});
    svg.circle({5.0, 6.0}, 7.0, {});
    svg.line({0.0, 0.5}, {1.0, 1.5}, {});
    svg.polyline({{0.0, 1.0}, {2.0, 3.0}}, {});
    const auto elements = readXml(svg.finished());
    ASSERT_EQ(elements.size(), 6u);
    EXPECT_EQ(elements[0].attributes.at("viewBox"), "0 0 100 50");
    EXPECT_EQ(elements[2].attributes.at("fill"), "red");
    EXPECT_EQ(elements[3].attributes.at("r"), "7");
    EXPECT_EQ(elements[4].attributes.at("y2"), "1.5");
    EXPECT_EQ(elements[5].attributes.at("points"), "0,1 2,3");
}

}  // namespace
}  // namespace ruvex::cli
