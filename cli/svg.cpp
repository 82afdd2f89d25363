#include "cli/svg.h"

#include <array>
#include <charconv>
#include <cmath>

namespace ruvex::cli {
namespace {

std::string escapeXmlCharacter(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        default:
            return {c >= 0 && c < ' ' && c != '\t' && c != '\n' ? '?' : c};
    }
}

std::string attributesText(const Svg::Attributes& attributes) {
    std::string text;
    for (const auto& [name, value] : attributes) {
        text.append(" ").append(name).append("=\"") += escapeXml(value) + '"';
    }
    return text;
}

}  // namespace

std::string escapeXml(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        escaped += escapeXmlCharacter(c);
    }
    return escaped;
}

std::string svgNumber(double value) {
    constexpr double kParts = 100.0;
    const double rounded = std::isfinite(value) ? std::round(value * kParts) / kParts : 0.0;
    std::array<char, 400> digits{};
    // Zero is added, so that there is none below zero.
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded + 0.0,
                                   std::chars_format::fixed)
                         .ptr;
    return {digits.data(), end};
}

Svg::Svg(double width, double height, std::string_view title) {
    const std::string w = svgNumber(width);
    const std::string h = svgNumber(height);
    text_ = "<svg" + attributesText({{"xmlns", "http://www.w3.org/2000/svg"},
                                     {"width", w},
                                     {"height", h},
                                     {"viewBox", "0 0 " + w + " " + h},
                                     {"font-family", "sans-serif"},
                                     {"font-size", "12"}});
    text_ += ">\n<title>" + escapeXml(title) + "</title>\n";
}

void Svg::element(std::string_view name, const Attributes& first, const Attributes& more) {
    text_.append("<").append(name) += attributesText(first) + attributesText(more) + "/>\n";
}

void Svg::rectangle(SvgPoint corner, double width, double height, const Attributes& more) {
    element("rect",
            {{"x", svgNumber(corner.x)},
             {"y", svgNumber(corner.y)},
             {"width", svgNumber(width)},
             {"height", svgNumber(height)}},
            more);
}

void Svg::circle(SvgPoint centre, double radius, const Attributes& more) {
    element("circle",
            {{"cx", svgNumber(centre.x)}, {"cy", svgNumber(centre.y)}, {"r", svgNumber(radius)}},
            more);
}

void Svg::line(SvgPoint from, SvgPoint to, const Attributes& more) {
    element("line",
            {{"x1", svgNumber(from.x)},
             {"y1", svgNumber(from.y)},
             {"x2", svgNumber(to.x)},
             {"y2", svgNumber(to.y)}},
            more);
}

void Svg::polyline(const std::vector<SvgPoint>& points, const Attributes& more) {
    std::string list;
    for (const SvgPoint& point : points) {
        if (!list.empty()) list += ' ';
        list.append(svgNumber(point.x)).append(",").append(svgNumber(point.y));
    }
    element("polyline", {{"points", list}, {"fill", "none"}}, more);
}

void Svg::text(SvgPoint at, std::string_view words, const Attributes& more) {
    text_ += "<text" + attributesText({{"x", svgNumber(at.x)}, {"y", svgNumber(at.y)}}) +
             attributesText(more) + ">" + escapeXml(words) + "</text>\n";
}

std::string Svg::finished() const {
    return text_ + "</svg>\n";
}

}  // namespace ruvex::cli
