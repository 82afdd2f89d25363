#include "looks/level_series.h"

#include <algorithm>
#include <string>

#include "looks/ruvex_control.h"
#include "parameters/parameter_table.h"
#include "runtime/error.h"

namespace ruvex::looks {

std::optional<std::vector<FrameValues>> levelSeries(const runtime::EffectSession& session,
                                                    std::int64_t first, std::int64_t last,
                                                    double rate, const std::stop_token& stop) {
    const IRuvexControl& control = ruvexControl(session);
    const auto scope = session.enter();
    std::vector<FrameValues> series;
    for (std::int64_t k = first; k <= last; ++k) {
        if (stop.stop_requested()) return std::nullopt;
        FrameValues& values = series.emplace_back();
        runtime::require(control.frameValues(runtime::frameTime(k, rate), rate, &values),
                         "the effect has no values for frame " + std::to_string(k));
    }
    return series;
}

bool ThresholdCurve::constant() const {
    return std::ranges::all_of(percent, [&](double value) { return value == percent.front(); });
}

std::vector<ThresholdCurve> thresholdCurves(const runtime::EffectSession& session,
                                            const std::vector<FrameValues>& series) {
    std::vector<ThresholdCurve> curves;
    for (const Artefact& artefact : artefacts()) {
        ThresholdCurve& curve = curves.emplace_back(ThresholdCurve{&artefact, {}});
        for (const FrameValues& values : series) {
            const double value = session.value(row(artefact.threshold).identifier, values.seconds);
            curve.percent.push_back(renderClamp(artefact.threshold, value));
        }
    }
    return curves;
}

}  // namespace ruvex::looks
