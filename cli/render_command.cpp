#include "cli/render_command.h"

#include <memory>
#include <utility>

#include "cli/clip_render.h"
#include "cli/job_words.h"
#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"
#include "cli/several_clips.h"
#include "cli/shell_text.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "cli/whole_sequence.h"
#include "jobs/files_written.h"
#include "jobs/job_file.h"

namespace ruvex::cli {
namespace {

/// A job that is saved is not run: what belongs to a run cannot be had with it.
void checkSaveJob(const jobs::RenderJob& job, const RenderOptions& options) {
    const bool params = !options.parameters.saveParams.empty();
    if (params || options.dryRun) {
        throw UsageError(std::string("--save-job and ") + (params ? "--save-params" : "--dry-run") +
                         " do not go together. Use them one after the other.");
    }
    inOptionWords([&] {
        jobs::FilesWritten written;
        written.add(options.saveJob);
        written.checkInputKept(job.input, job.mask);
        for (const std::filesystem::path& look : lookFilesOf(options.parameters)) {
            written.checkKept(look, "look file");
        }
    });
}

int renderOne(const RenderOptions& options, const std::string& label) {
    std::vector<std::string> warnings;
    const jobs::RenderJob job = typedJob(options, warnings);
    // Of several clips it is told once.
    if (auto whole = label.empty() ? wholeSequence(options) : std::nullopt) {
        const std::string command = commandText("render", renderOptions(*whole));
        warnings.push_back(wholeSequenceText(options, command));
    }
    if (talkOf(options.talk) != Talk::Quiet) printWarnings(warnings);
    return runTypedJob(job, options, label, [&](std::int64_t frame) {
        RenderOptions one = oneFrame(options, frame);
        return commandText("render", renderOptions(one));
    });
}

}  // namespace

int runTypedJob(const jobs::RenderJob& job, const RenderOptions& options, const std::string& label,
                std::function<std::string(std::int64_t frame)> command) {
    checkJsonName("--save-job", options.saveJob, "job");
    const Talk talk = talkOf(options.talk);
    if (!options.saveJob.empty()) {
        checkSaveJob(job, options);
        jobs::writeJob(job, options.saveJob);
        return 0;
    }
    return renderClip(job, {.talk = talk,
                            .dryRun = options.dryRun,
                            .saveParams = options.parameters.saveParams,
                            .saveProjectSize = job.projectSize,
                            .readFrom = lookFilesOf(options.parameters),
                            .label = label,
                            .repeat = std::move(command)});
}

Command renderCommand() {
    const auto options = std::make_shared<RenderOptions>();
    return {
        .name = "render",
        .summary = "Render a clip through the effect",
        .options = renderOptions(*options),
        .notes = kRenderNotes,
        .examples =
            {"ruvex render clip.mp4 -o poor.mp4 --preset Clean --set \"Resolution=40\"",
             "ruvex render clip.mp4 -o bad.mp4 --preset \"Bad Colour TV\"",
             "ruvex render clip.mp4 -o mine.mp4 --preset \"Bad Colour TV\" --save-params mine.json",
             "ruvex render clip.mp4 -o going.mkv --preset Clean --key \"Resolution=0:100 2:25\" "
             "--frames 0-49",
             "ruvex render shot.%05d.png -o out.%05d.png --rate 24 --set \"X Edge Method=Wrap\"",
             "ruvex render clip.mp4 -o rewound.mp4 --preset rewind --ends hold",
             "ruvex render in.%d.s214 -o out.%d.s214 --size 1920x1080 --workers 4",
             "ruvex render clip.mp4 -o bad.mp4 --preset \"Bad Colour TV\" --save-job bad.json",
             "ruvex render clip.mp4 other.mp4 -o results/ --preset \"Bad Colour TV\""},
        .run = [options] { return renderClips(*options, renderOne); }};
}

}  // namespace ruvex::cli
