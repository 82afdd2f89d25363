#include <cstdio>
#include <memory>
#include <optional>

#include "cli/exit_status.h"
#include "cli/farm_commands.h"
#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/progress.h"
#include "cli/stop_signals.h"
#include "farm/log_reading.h"
#include "farm/run_join.h"

namespace ruvex::cli {
namespace {

/// Follows a task in its log.
class TaskReport final : public jobs::RenderEvents {
public:
    explicit TaskReport(std::optional<std::int64_t> frames) : frames_(frames) {}

    void begun(const jobs::FramesToMake& frames) override { frames_ = frames.count(); }
    void remark(const std::string& sentence) override { printWarnings({sentence}); }
    void frameWritten() override {
        if (!progress_) progress_.emplace(frames_);
        progress_->step();
    }

private:
    std::optional<std::int64_t> frames_;
    std::optional<Progress> progress_;
};

struct WorkOptions {
    std::string folder;
    std::string number;
    std::string id;
    bool verify = false;
};

OptionTable workOptions(WorkOptions& options, const char* place, const char* placeHelp) {
    return {
        {"FOLDER", "", "The folder of the farm job", &options.folder, true},
        {place, "", placeHelp, &options.number, true},
        {"--id", "ID", "Refuse a farm job that is not this one; default: any that is in the folder",
         &options.id}};
}

farm::Farm openedFarm(const WorkOptions& options) {
    farm::Farm job(options.folder);
    if (!options.id.empty()) checkId(job, options.id);
    return job;
}

std::int64_t numberOf(const WorkOptions& options, const char* place) {
    return parseWhole(place, options.number, 0, static_cast<int>(jobs::kFrameNumberEnd));
}

void printBegin(const std::string& work) {
    printMessage(farm::firstLogLine(work, farm::hostName()));
}

int report(farm::TaskEnd end, const std::string& what) {
    switch (end) {
        case farm::TaskEnd::WasDone:
            printMessage(what + " was done before.");
            return kDone;
        case farm::TaskEnd::Stopped:
            printMessage(what + " was stopped before its end.");
            return kStopped;
        default:
            printMessage(what + " is done.");
            return kDone;
    }
}

int task(const WorkOptions& options) {
    const farm::Farm job = openedFarm(options);
    const farm::FarmChunk chunk = job.chunk(numberOf(options, "CHUNK"));
    const std::string what = toText(job, chunk);
    printBegin(what);
    const StopSignals signals;
    TaskReport events(chunk.frames.count());
    return report(runChunk(job, chunk.number, events, signals.token()), what);
}

int join(const WorkOptions& options) {
    const farm::Farm job = openedFarm(options);
    const std::int64_t number = numberOf(options, "CLIP");
    const farm::FarmClip& clip = job.clip(number);
    printBegin(joinText(clip));
    const StopSignals signals;
    TaskReport events(clip.frames.count());
    const farm::TaskEnd end = runJoin(job, number, options.verify, events, signals.token());
    return report(end, joinText(clip));
}

}  // namespace

Command farmTaskCommand() {
    const auto options = std::make_shared<WorkOptions>();
    return {.name = "farm task",
            .summary = "Render one chunk of a farm job; the scheduler runs it",
            .options = workOptions(*options, "CHUNK", "The number of the chunk, from 0 on"),
            .notes =
                "A chunk that is done is not rendered again. A task that is ended leaves "
                "nothing half-written under\na final name; started again, it renders its "
                "chunk, and of a sequence the pictures that are missing.",
            .examples = {"ruvex farm task out.mov.farm 17"},
            .run = [options] { return task(*options); }};
}

Command farmJoinCommand() {
    const auto options = std::make_shared<WorkOptions>();
    OptionTable table = workOptions(*options, "CLIP", "The number of the clip, from 0 on");
    table.push_back({"--verify", "", "Read the pictures of a sequence, and compare their digests",
                     &options->verify});
    return {.name = "farm join",
            .summary = "Join the chunks of a clip of a farm job; the scheduler runs it",
            .options = table,
            .notes =
                "Compares the digest of each chunk with the one that its task has recorded, "
                "and the number of frames.\nA join that lacks chunks names them. Of a sequence "
                "it checks that all pictures are there.",
            .examples = {"ruvex farm join out.mov.farm 0"},
            .run = [options] { return join(*options); }};
}

}  // namespace ruvex::cli
