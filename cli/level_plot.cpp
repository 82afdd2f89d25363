#include "cli/level_plot.h"

#include <algorithm>
#include <cmath>

#include "cli/plot_scale.h"
#include "cli/svg.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"

namespace ruvex::cli {
namespace {

constexpr double kWidth = 1000.0;
constexpr double kHeight = 460.0;
// The field of the plot; the labels of the thresholds stand to its right.
constexpr double kLeft = 62.0;
constexpr double kRight = 770.0;
constexpr double kTop = 66.0;
constexpr double kBottom = 410.0;

constexpr double kLineOfText = 15.0;
constexpr double kBaseline = 4.0;  // from a line's middle down to where its letters stand
constexpr int kMostMarks = 10;

constexpr const char* kInk = "#222222";
constexpr const char* kGrid = "#e2e2e2";

std::string hundredths(double value) {
    return formatNumber(std::round(value * 100.0) / 100.0);
}

/// The label of an artefact's threshold as an identifier: "vert-roll-threshold".
std::string idText(const Artefact& artefact) {
    std::string text(row(artefact.threshold).label);
    for (char& c : text) {
        c = c == ' ' ? '-' : static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    return text;
}

std::string labelText(const looks::ThresholdCurve& curve) {
    const std::string label(row(curve.artefact->threshold).label);
    return curve.constant() ? label + " " + hundredths(curve.percent[0]) + " %" : label + ", keyed";
}

class Plot {
public:
    Plot(const std::vector<FrameValues>& series,
         const std::vector<looks::ThresholdCurve>& thresholds, double framesPerSecond)
        : series_(series),
          thresholds_(thresholds),
          rate_(framesPerSecond),
          first_(series.front().frame),
          last_(std::max(series.back().frame, series.front().frame + 1)),
          svg_(kWidth, kHeight, title()) {}

    std::string draw() {
        svg_.rectangle({0.0, 0.0}, kWidth, kHeight, {{"fill", "#ffffff"}});
        svg_.text({(kLeft + kRight) / 2.0, 20.0}, title(),
                  {{"text-anchor", "middle"}, {"font-size", "15"}, {"fill", kInk}});
        drawLevels();
        drawFrames();
        drawSeconds();
        svg_.rectangle({kLeft, kTop}, kRight - kLeft, kBottom - kTop,
                       {{"fill", "none"}, {"stroke", "#999999"}});
        drawThresholds();
        drawLevel();
        return svg_.finished();
    }

private:
    std::string title() const {
        return "Level of breakup, frames " + std::to_string(series_.front().frame) + " to " +
               std::to_string(series_.back().frame) + " at " + hundredths(rate_) +
               " frames a second";
    }

    double xOf(double frame) const {
        return kLeft + (frame - first_) / (last_ - first_) * (kRight - kLeft);
    }
    static double yOf(double percent) { return kBottom - percent / 100.0 * (kBottom - kTop); }

    void words(SvgPoint at, const std::string& text, const char* anchor) {
        svg_.text(at, text, {{"text-anchor", anchor}, {"fill", kInk}});
    }

    void drawLevels() {
        for (int percent = 0; percent <= 100; percent += 20) {
            const double y = yOf(percent);
            svg_.line({kLeft, y}, {kRight, y}, {{"stroke", kGrid}});
            words({kLeft - 8.0, y + kBaseline}, std::to_string(percent) + " %", "end");
        }
    }

    void drawFrames() {
        const double step = niceStep(last_ - first_, kMostMarks, 1.0);
        for (const double frame : multiplesWithin(first_, last_, step)) {
            const double x = xOf(frame);
            svg_.line({x, kTop}, {x, kBottom}, {{"stroke", kGrid}});
            words({x, kBottom + 17.0}, formatNumber(frame), "middle");
        }
        words({(kLeft + kRight) / 2.0, kBottom + 38.0}, "frames", "middle");
    }

    void drawSeconds() {
        constexpr double kShortest = 1e-6;
        const double step = niceStep((last_ - first_) / rate_, kMostMarks, kShortest);
        for (const double seconds : multiplesWithin(first_ / rate_, last_ / rate_, step)) {
            const double x = xOf(seconds * rate_);
            svg_.line({x, kTop - 5.0}, {x, kTop}, {{"stroke", "#999999"}});
            words({x, kTop - 9.0}, formatNumber(std::round(seconds * 1e6) / 1e6), "middle");
        }
        words({(kLeft + kRight) / 2.0, kTop - 25.0}, "seconds", "middle");
    }

    std::vector<SvgPoint> pointsOf(const looks::ThresholdCurve& curve) const {
        if (curve.constant()) {
            return {{kLeft, yOf(curve.percent[0])}, {kRight, yOf(curve.percent[0])}};
        }
        std::vector<SvgPoint> points;
        for (std::size_t i = 0; i < series_.size(); ++i) {
            points.push_back({xOf(series_[i].frame), yOf(curve.percent[i])});
        }
        return points;
    }

    /// Dashes; curves that lie on one another take turns, so that each is seen.
    Svg::Attributes dashesOf(std::size_t index) const {
        constexpr int kDash = 8;
        const auto same = [&](const looks::ThresholdCurve& other) {
            return other.percent == thresholds_[index].percent;
        };
        const auto begin = thresholds_.begin();
        const auto here = begin + static_cast<std::ptrdiff_t>(index);
        const int turn = static_cast<int>(std::count_if(begin, here, same));
        const int all = static_cast<int>(std::count_if(begin, thresholds_.end(), same));
        const int pause = all == 1 ? kDash / 2 : kDash * (all - 1);
        return {{"stroke-dasharray", std::to_string(kDash) + " " + std::to_string(pause)},
                {"stroke-dashoffset", std::to_string(-kDash * turn)}};
    }

    void drawThresholds() {
        std::vector<double> ends;
        for (const looks::ThresholdCurve& curve : thresholds_) {
            ends.push_back(yOf(curve.percent.back()));
        }
        const std::vector<double> places = spread(ends, kLineOfText, kTop, kBottom);
        for (std::size_t i = 0; i < thresholds_.size(); ++i) {
            const looks::ThresholdCurve& curve = thresholds_[i];
            const std::string colour(curve.artefact->plotColour);
            Svg::Attributes look = dashesOf(i);
            look.insert(
                look.end(),
                {{"id", idText(*curve.artefact)}, {"stroke", colour}, {"stroke-width", "1.5"}});
            svg_.polyline(pointsOf(curve), look);
            svg_.line({kRight, ends[i]}, {kRight + 16.0, places[i]}, {{"stroke", colour}});
            svg_.text({kRight + 20.0, places[i] + kBaseline}, labelText(curve), {{"fill", colour}});
        }
    }

    void drawLevel() {
        std::vector<SvgPoint> points;
        for (const FrameValues& values : series_) {
            points.push_back({xOf(values.frame), yOf(values.level * 100.0)});
        }
        svg_.polyline(points, {{"id", "level"},
                               {"stroke", kInk},
                               {"stroke-width", "1.6"},
                               {"stroke-linejoin", "round"}});
        if (points.size() == 1) {
            svg_.circle(points[0], 3.0, {{"fill", kInk}});
        }
    }

    const std::vector<FrameValues>& series_;
    const std::vector<looks::ThresholdCurve>& thresholds_;
    double rate_;
    double first_;
    double last_;
    Svg svg_;
};

}  // namespace

std::string levelPlot(const std::vector<FrameValues>& series,
                      const std::vector<looks::ThresholdCurve>& thresholds,
                      double framesPerSecond) {
    return Plot(series, thresholds, framesPerSecond).draw();
}

}  // namespace ruvex::cli
