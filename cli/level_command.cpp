#include "cli/level_command.h"

#include <iostream>
#include <memory>
#include <span>

#include "cli/exit_status.h"
#include "cli/level_job.h"
#include "cli/level_plot.h"
#include "cli/messages.h"
#include "cli/stop_signals.h"
#include "cli/value_column.h"
#include "files/whole_file.h"
#include "looks/level_series.h"
#include "looks/look_writing.h"
#include "looks/session_look.h"

namespace ruvex::cli {
namespace {

/// The values are lengths of the project frame and do not depend on its size.
runtime::Project projectOf(const LevelJob& job) {
    return {.width = 720, .height = 576, .frameRate = job.rate.value()};
}

void writePlot(const runtime::EffectSession& session, const LevelJob& job,
               const std::vector<FrameValues>& series) {
    const auto curves = looks::thresholdCurves(session, series);
    const std::string svg = levelPlot(series, curves, job.rate.value());
    files::writeWhole(job.plot, std::as_bytes(std::span(svg)));
}

constexpr const char* kNotes =
    R"(One line a frame: its time, the seconds of the clip played up to it, the clip's frame that it
shows without and with Repeat Frames, the level from 0 to 1, what each stage does at that level,
and what has built up by then. Lengths are pixels of the project frame.)";

int runLevel(const LevelOptions& options) {
    const LevelJob job = makeLevelJob(options);
    printWarnings(job.warnings);
    const StopSignals signals;
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = projectOf(job)});
    looks::applyChanges(session, job.parameters);
    if (!job.saveParams.empty()) looks::saveLook(session, job.saveParams, job.projectSize);
    const auto series = looks::levelSeries(session, job.frames.first, job.frames.last,
                                           job.rate.value(), signals.token());
    if (!series) {
        printMessage("stopped; the levels were not printed.");
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
