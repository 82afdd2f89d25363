#include "cli/level_command.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <span>

#include "cli/exit_status.h"
#include "cli/interruption.h"
#include "cli/level_job.h"
#include "cli/level_plot.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/ruvex_control.h"
#include "cli/value_column.h"
#include "media/partial_file.h"
#include "runtime/error.h"

namespace ruvex::cli {
namespace {

/// The values are lengths of the project frame and do not depend on its size: any will do.
runtime::Project projectOf(const LevelJob& job) {
    return {.width = 720, .height = 576, .frameRate = job.rate.value()};
}

FrameValues valuesOf(const IRuvexControl& control, std::int64_t frame, double rate) {
    FrameValues values{};
    runtime::require(control.frameValues(runtime::frameTime(frame, rate), rate, &values),
                     "the effect has no values for frame " + std::to_string(frame));
    return values;
}

/// Nothing if it was told to stop.
std::optional<std::vector<FrameValues>> valuesOf(const runtime::EffectSession& session,
                                                 const LevelJob& job) {
    const IRuvexControl& control = ruvexControl(session);
    std::vector<FrameValues> series;
    for (std::int64_t k = job.frames.first; k <= job.frames.last; ++k) {
        if (stopWished()) {
            return std::nullopt;
        }
        series.push_back(valuesOf(control, k, job.rate.value()));
    }
    return series;
}

void writePlot(const runtime::EffectSession& session, const LevelJob& job,
               const std::vector<FrameValues>& series) {
    const std::string svg = levelPlot(series, thresholdCurves(session, series), job.rate.value());
    media::writeWhole(job.plot, std::as_bytes(std::span(svg)));
}

constexpr const char* kNotes =
    R"(One line a frame: its time, the seconds of the clip played up to it, the clip's frame that it
shows without and with Repeat Frames, the level from 0 to 1, what each stage does at that level,
and what has built up by then. Lengths are pixels of the project frame.)";

int runLevel(const LevelOptions& options) {
    const LevelJob job = makeLevelJob(options);
    printWarnings(job.warnings);
    catchStopSignals();
    const runtime::Project project = projectOf(job);
    const OpenProject open(project);
    runtime::EffectSession session({.module = runtime::Module::loadDefault(),
                                    .project = project,
                                    .provider = {},
                                    .interruption = {}});
    setParameters(session, job.parameters);
    const auto series = valuesOf(session, job);
    if (!series) {
        std::fputs("ruvex: stopped; nothing was written.\n", stderr);
        return kStopped;
    }
    if (!job.plot.empty()) {
        writePlot(session, job, *series);
    }
    std::cout << (options.csv ? csvOf(*series) : tableOf(*series));
    return finishOutput();
}

}  // namespace

Command levelCommand() {
    const auto options = std::make_shared<LevelOptions>();
    return {.name = "level",
            .summary = "List the level of breakup, frame by frame",
            .options = levelOptions(*options),
            .notes = kNotes,
            .examples = {"ruvex level --frames 0-99",
                         "ruvex level clip.mp4 --key \"Master Breakup=0:0 2:100\" --csv",
                         "ruvex level --rate 25 --frames 0-499 --plot level.svg"},
            .run = [options] { return runLevel(*options); }};
}

}  // namespace ruvex::cli
