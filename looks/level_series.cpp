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
    std::vector<FrameValues> series(static_cast<std::size_t>(last - first + 1));
    std::stop_token asked = stop;
    const StopQuestion question{
        [](void* token) { return static_cast<std::stop_token*>(token)->stop_requested(); }, &asked};
    const HRESULT status = control.levels(first, last, rate, series.data(), &question);
    if (status == E_ABORT) return std::nullopt;
    runtime::require(status, "the effect has no values for frames " + std::to_string(first) +
                                 " to " + std::to_string(last));
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
