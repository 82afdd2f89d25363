// Pictures of lines and words, as SVG.

#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ruvex::cli {

/// Text as it may stand in an element or an attribute of XML. What XML has no way to hold becomes
/// a question mark.
std::string escapeXml(std::string_view text);

/// A coordinate: rounded to hundredths, without needless zeroes. Not finite is 0.
std::string svgNumber(double value);

struct SvgPoint {
    double x = 0.0;
    double y = 0.0;
};

/// A picture that is written from front to back. Lengths are the picture's own units, y downwards.
class Svg {
public:
    /// Names and values; the values are escaped.
    using Attributes = std::vector<std::pair<std::string_view, std::string>>;

    /// `title` is what a reader that cannot show the picture says.
    Svg(double width, double height, std::string_view title);

    void rectangle(SvgPoint corner, double width, double height, const Attributes& more);
    void circle(SvgPoint centre, double radius, const Attributes& more);
    void line(SvgPoint from, SvgPoint to, const Attributes& more);
    void polyline(const std::vector<SvgPoint>& points, const Attributes& more);
    void text(SvgPoint at, std::string_view words, const Attributes& more = {});

    /// The whole picture.
    std::string finished() const;

private:
    void element(std::string_view name, const Attributes& first, const Attributes& more);

    std::string text_;
};

}  // namespace ruvex::cli
