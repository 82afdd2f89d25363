#include "cli/clip_render.h"

#include <iostream>
#include <optional>
#include <stdexcept>
#include <utility>

#include "cli/closing_line.h"
#include "cli/job_report.h"
#include "cli/messages.h"
#include "cli/stop_signals.h"
#include "jobs/files_written.h"
#include "jobs/frames_to_make.h"
#include "jobs/run_render.h"
#include "looks/look_writing.h"
#include "looks/session_look.h"
#include "media/file_kind.h"

namespace ruvex::cli {
namespace {

/// Reports a render on the standard error stream.
class ReportedRender final : public jobs::RenderEvents {
public:
    ReportedRender(const jobs::RenderPlan& plan, const media::ClipInfo& clip,
                   const RenderManner& manner)
        : plan_(plan), clip_(clip), talk_(manner.talk), label_(manner.label) {}

    void begun(const jobs::FramesToMake& frames) override {
        if (talk_ == Talk::Verbose) std::cerr << jobReport(plan_, clip_, frames);
        progress_.emplace(frames.count(), talk_, label_);
    }
    void remark(const std::string& sentence) override {
        if (talk_ != Talk::Quiet) printWarnings({sentence});
    }
    void frameWritten() override { progress_->step(); }
    void memoryUsed(const media::HeldMemory& held) override { held_ = held; }
    void finished() override {
        progress_->endLine();
        if (talk_ == Talk::Verbose) printMessage(memoryLine(held_));
        if (talk_ != Talk::Quiet && tells()) {
            printMessage(closingLine(plan_, progress_->done(), progress_->seconds()));
        }
    }

private:
    /// A single still has a closing line only with --verbose.
    bool tells() const {
        const bool still =
            media::isStill(media::fileKind(plan_.output)) && plan_.frames.count() == 1;
        return !still || talk_ == Talk::Verbose;
    }

    const jobs::RenderPlan& plan_;
    const media::ClipInfo clip_;
    Talk talk_;
    std::string label_;
    std::optional<Progress> progress_;
    media::HeldMemory held_;
};

/// The parameters as the effect has them after the plan's changes.
void saveParams(const jobs::RenderPlan& plan, const RenderManner& manner) {
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = plan.project});
    looks::applyChanges(session, plan.parameters);
    std::optional<looks::ProjectSize> size;
    if (const auto& given = manner.saveProjectSize) size = {given->width, given->height};
    looks::saveLook(session, manner.saveParams, size);
}

/// Beside what planRender has checked: the file that the job or the look is from, and the
/// parameters that are saved.
void checkReadFilesKept(const jobs::RenderPlan& plan, const RenderManner& manner) {
    jobs::FilesWritten output;
    output.addOutput(plan.output, plan.frames);
    for (const std::filesystem::path& file : manner.readFrom) {
        output.checkKept(file, "file that the parameters are from");
    }
    jobs::FilesWritten params;
    params.add(manner.saveParams);
    params.checkInputKept(plan.input, plan.mask);
}

int runPlan(const jobs::RenderPlan& plan, const RenderManner& manner,
            std::unique_ptr<media::FrameReader> reader, const std::stop_source& stop) {
    const StopSignals signals(stop);
    if (manner.dryRun) {
        std::cout << jobReport(plan, reader->info(), framesToMake(plan, signals.token()));
        return finishOutput();
    }
    if (!manner.saveParams.empty()) saveParams(plan, manner);
    ReportedRender report(plan, reader->info(), manner);
    const jobs::RenderEnd end = jobs::runRender(plan, std::move(reader), report, signals.token());
    return end == jobs::RenderEnd::Finished ? 0 : reportStop(plan.output);
}

}  // namespace

int renderClip(const jobs::RenderJob& job, const RenderManner& manner) {
    try {
        // Until the clip is open, a signal ends the program as usual.
        const std::stop_source stop;
        media::ReadOptions reading = jobs::readingOf(job);
        reading.stop = stop.get_token();
        auto reader = media::openReader(job.input, reading);
        std::vector<jobs::Note> notes;
        const jobs::RenderPlan plan = planRender(job, reader->info(), notes);
        checkReadFilesKept(plan, manner);
        if (manner.talk != Talk::Quiet) printNotes(notes, manner.fieldText);
        return runPlan(plan, manner, std::move(reader), stop);
    } catch (const jobs::JobError& error) {
        throw UsageError(sentenceOf(error, manner.fieldText));
    } catch (const jobs::FrameFailure& failure) {
        throw std::runtime_error(
            failure.what() +
            (manner.repeat ? " To repeat it: " + manner.repeat(failure.frame()) : ""));
    }
}

}  // namespace ruvex::cli
