#include "cli/level_plot.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

#include "parameters/parameter_table.h"
#include "tests/cli/xml_check.h"

namespace ruvex::cli {
namespace {

/// Frames `first` to `last` with a level that rises from 0 to 1.
std::vector<FrameValues> ramp(std::int32_t first, std::int32_t last, double rate) {
    std::vector<FrameValues> series;
    for (std::int32_t k = first; k <= last; ++k) {
        FrameValues& values = series.emplace_back();
        values.frame = k;
        values.seconds = k / rate;
        values.level = static_cast<float>(k - first) / static_cast<float>(last - first + 1);
    }
    return series;
}

std::vector<looks::ThresholdCurve> allAt(double percent, std::size_t frames) {
    std::vector<looks::ThresholdCurve> curves;
    for (const Artefact& artefact : artefacts()) {
        curves.push_back({&artefact, std::vector<double>(frames, percent)});
    }
    return curves;
}

using Elements = std::vector<XmlElement>;

Elements named(const Elements& elements, const std::string& name) {
    Elements found;
    std::copy_if(elements.begin(), elements.end(), std::back_inserter(found),
                 [&](const XmlElement& element) { return element.name == name; });
    return found;
}

double number(const XmlElement& element, const char* attribute) {
    return std::stod(element.attributes.at(attribute));
}

/// A word is taken to be 7 units wide a letter, more than the usual faces are.
struct Box {
    double left, right, y;
};

Box boxOf(const XmlElement& text) {
    const double width = 7.0 * static_cast<double>(text.text.size());
    const auto found = text.attributes.find("text-anchor");
    const std::string anchor = found == text.attributes.end() ? "start" : found->second;
    const double left = number(text, "x") - width * (anchor == "end"      ? 1.0
                                                     : anchor == "middle" ? 0.5
                                                                          : 0.0);
    return {left, left + width, number(text, "y")};
}

void expectNoOverlaps(const Elements& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const Box a = boxOf(texts[i]);
        EXPECT_GE(a.left, 0.0) << texts[i].text;
        EXPECT_LE(a.right, 1000.0) << texts[i].text;
        for (std::size_t j = 0; j < i; ++j) {
            const Box b = boxOf(texts[j]);
            const bool apart = a.right <= b.left || b.right <= a.left || std::fabs(a.y - b.y) > 11;
            EXPECT_TRUE(apart) << texts[i].text << " / " << texts[j].text;
        }
    }
}

struct Range {
    std::int32_t first, last;
    double rate;
};

class LevelPlot : public testing::TestWithParam<Range> {};

TEST_P(LevelPlot, IsWellFormedAndItsWordsDoNotOverlap) {
    const auto [first, last, rate] = GetParam();
    const auto series = ramp(first, last, rate);
    for (const double percent : {0.0, 33.3333, 100.0}) {
        const Elements elements = readXml(levelPlot(series, allAt(percent, series.size()), rate));
        expectNoOverlaps(named(elements, "text"));
    }
}

TEST_P(LevelPlot, HasOnePointAFrameInsideTheField) {
    const auto [first, last, rate] = GetParam();
    const auto series = ramp(first, last, rate);
    const Elements lines =
        named(readXml(levelPlot(series, allAt(50.0, series.size()), rate)), "polyline");
    ASSERT_EQ(lines.size(), artefacts().size() + 1) << "a threshold each, and the level";
    std::istringstream points(lines.back().attributes.at("points"));
    std::size_t count = 0;
    double before = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (char comma = 0; points >> x >> comma >> y; ++count) {
        EXPECT_GE(x, before);
        EXPECT_GE(y, 66.0);
        EXPECT_LE(y, 410.0);
        before = x;
    }
    EXPECT_EQ(count, series.size());
}

INSTANTIATE_TEST_SUITE_P(Ranges, LevelPlot,
                         testing::Values(Range{0, 499, 25.0}, Range{0, 0, 25.0}, Range{7, 8, 25.0},
                                         Range{0, 9, 30000.0 / 1001.0},
                                         Range{123456, 123556, 29.97}, Range{0, 9999, 120.0},
                                         Range{16777205, 16777215, 23.976}, Range{5, 25, 0.001}));

TEST(LevelPlotLabels, NameEveryThresholdAtItsHeight) {
    const auto series = ramp(0, 9, 25.0);
    auto thresholds = allAt(0.0, series.size());
    for (std::size_t i = 0; i < thresholds.size(); ++i) {
        thresholds[i].percent.assign(series.size(), 12.5 * static_cast<double>(i));
    }
    const Elements elements = readXml(levelPlot(series, thresholds, 25.0));
    const Elements lines = named(elements, "polyline");
    for (std::size_t i = 0; i < thresholds.size(); ++i) {
        const std::string label(row(thresholds[i].artefact->threshold).label);
        const auto holds = [&](const XmlElement& e) { return e.text.starts_with(label); };
        EXPECT_EQ(std::count_if(elements.begin(), elements.end(), holds), 1) << label;
        const std::string points = lines[i].attributes.at("points");
        EXPECT_EQ(std::stod(points.substr(points.find(',') + 1)), 410.0 - 43.0 * i) << label;
    }
}

TEST(LevelPlotLabels, AKeyedThresholdIsACurve) {
    const auto series = ramp(0, 9, 25.0);
    auto thresholds = allAt(50.0, series.size());
    for (std::size_t k = 0; k < series.size(); ++k) {
        thresholds[3].percent[k] = 10.0 * static_cast<double>(k);
    }
    const Elements elements = readXml(levelPlot(series, thresholds, 25.0));
    const Elements lines = named(elements, "polyline");
    const auto points = [&](std::size_t i) {
        const std::string& list = lines[i].attributes.at("points");
        return std::count(list.begin(), list.end(), ',');
    };
    EXPECT_EQ(lines[3].attributes.at("id"), "snow-threshold");
    EXPECT_EQ(points(3), 10);
    EXPECT_EQ(points(2), 2);
}

// Two lines on one another would show the upper one alone.
TEST(LevelPlotLabels, EqualThresholdsTakeTurns) {
    const auto series = ramp(0, 9, 25.0);
    const Elements lines =
        named(readXml(levelPlot(series, allAt(50.0, series.size()), 25.0)), "polyline");
    const std::size_t count = artefacts().size();
    const std::string dashes = "8 " + std::to_string(8 * (count - 1));
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(lines[i].attributes.at("stroke-dasharray"), dashes);
        EXPECT_EQ(number(lines[i], "stroke-dashoffset"), -8.0 * static_cast<double>(i));
    }
}

}  // namespace
}  // namespace ruvex::cli
