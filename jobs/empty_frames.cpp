#include "jobs/empty_frames.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <variant>

#include "parameters/parameter_text.h"

namespace ruvex::jobs {
namespace {

double leastValue(const looks::Setting& setting) {
    return setting.value;
}

double leastValue(const looks::Animation& animation) {
    const auto least = std::ranges::min_element(animation.keys, {}, &looks::Key::value);
    return least->value;
}

/// The lowest Resolution of any frame, in percent.
double leastResolution(const RenderPlan& plan) {
    double least = row(ParameterId::Resolution).defaultValue;
    for (const looks::ParameterChange& change : plan.parameters) {
        if (looks::rowOf(change).id != ParameterId::Resolution) continue;
        least = std::visit([](const auto& either) { return leastValue(either); }, change);
    }
    return least;
}

/// The lowest Resolution at which both sides of a picture keep a whole pixel, in percent.
double leastWithPixels(media::FrameSize picture) {
    constexpr double kLeastOfAll = 1.0;
    return std::max(kLeastOfAll, 100.0 / std::min(picture.width, picture.height));
}

}  // namespace

std::optional<Note> emptyFramesNote(const RenderPlan& plan) {
    media::FrameSize picture = plan.size;
    if (plan.fields != media::FieldOrder::Progressive) picture.height /= 2;
    const double needed = leastWithPixels(picture);
    if (!(leastResolution(plan) < needed)) return std::nullopt;
    const std::string shown = formatNumber(std::ceil(needed * 100.0) / 100.0);
    return Note{JobField::Input,
                "At a Resolution below " + shown + ", nothing is left of " +
                    (plan.fields == media::FieldOrder::Progressive ? "pictures" : "fields") +
                    " of " + toText(picture) + ": such frames are black" +
                    (plan.opaque ? "." : " and transparent.")};
}

}  // namespace ruvex::jobs
