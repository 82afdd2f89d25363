#include "farm/make_farm.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <span>
#include <system_error>

#include "farm/absolute_name.h"
#include "farm/batch_script.h"
#include "farm/farm_error.h"
#include "farm/farm_file.h"
#include "farm/input_stamps.h"
#include "farm/planned_clip.h"
#include "files/numbered_path.h"
#include "files/partial_name.h"
#include "files/whole_file.h"
#include "jobs/files_written.h"
#include "jobs/job_file.h"
#include "media/file_kind.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

void writeText(const fs::path& file, const std::string& text) {
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

std::string newId() {
    std::random_device random;
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%08x%08x", random(), random());
    return text.data();
}

void checkNoStream(const jobs::RenderJob& job) {
    if (job.input == "-" || job.output == "-") {
        throw FarmError(
            "A standard stream (-) exists on one machine only. Name files for the clip and the "
            "result.");
    }
}

/// The job as every machine is to run it.
jobs::RenderJob fixedJob(jobs::RenderJob job) {
    checkNoStream(job);
    for (fs::path* file : {&job.input, &job.output, &job.mask}) {
        if (!file->empty()) *file = absoluteName(*file);
    }
    if (!job.workers) job.workers = kUsualWorkers;
    if (!job.encoderThreads && media::fileKind(job.output) == media::FileKind::Video) {
        job.encoderThreads = kUsualEncoderThreads;
    }
    return job;
}

/// Letters, digits and the like of the output's name, after a number that no other clip has.
std::string clipName(std::size_t number, const fs::path& output) {
    std::string name = std::to_string(number) + "-";
    for (const char letter : output.stem().string()) {
        const bool plain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                           (letter >= '0' && letter <= '9');
        name += plain ? letter : '_';
    }
    constexpr std::size_t kLongest = 100;
    return name.substr(0, kLongest);
}

void checkCanBeCut(const jobs::RenderPlan& plan) {
    try {
        checkInChunks(plan);
    } catch (const jobs::JobError& error) {
        throw FarmError(std::string(fieldName(error.field())) + ": " + error.what());
    }
    if (!jobs::isJoined(plan) && !files::NumberedPath(plan.output).isPattern()) {
        throw FarmError(plan.output.string() +
                        " holds one picture, which one machine renders: use 'ruvex render'.");
    }
}

/// Throws FarmError without the folder of the result: a video has no file in it until the join.
void checkResultFolder(const fs::path& output) {
    std::error_code error;
    if (fs::is_directory(output.parent_path(), error)) return;
    throw FarmError("The folder " + output.parent_path().string() +
                    " does not exist. Make it first.");
}

FarmClip clipOf(const std::string& name, const jobs::RenderJob& job, const jobs::RenderPlan& plan,
                const std::string& text) {
    checkCanBeCut(plan);
    checkResultFolder(plan.output);
    return {.name = name,
            .jobDigest = digestOfText(text),
            .input = plan.input,
            .inputStamp = stampOfInput(plan.input),
            .mask = job.mask,
            .maskStamp = stampOfMask(job.mask),
            .output = plan.output,
            .frames = plan.frames,
            .chunkExtension = jobs::isJoined(plan) ? jobs::chunkExtension(plan) : ""};
}

/// A file that both renders write.
std::optional<fs::path> sharedResult(const FarmClip& one, const FarmClip& other) {
    const files::NumberedPath a(one.output);
    const files::NumberedPath b(other.output);
    if (one.isJoined() != other.isJoined()) return std::nullopt;
    if (one.isJoined()) return a.plain() == b.plain() ? std::optional(a.plain()) : std::nullopt;
    const std::int64_t first = std::max(one.frames.first, other.frames.first);
    const std::int64_t last = std::min(one.frames.last, other.frames.last);
    // The names agree for all numbers, or from the first that has more digits than a field.
    if (first > last || a.file(last) != b.file(last)) return std::nullopt;
    return a.file(last);
}

/// Refuses two renders into one file, and a render over another's clip.
void checkFilesKept(const FarmJob& job) {
    for (const FarmClip& clip : job.clips) {
        jobs::FilesWritten written;
        written.addOutput(clip.output, clip.frames);
        for (const FarmClip& other : job.clips) {
            if (&other == &clip) continue;
            written.checkInputKept(other.input, other.mask);
            const auto shared = sharedResult(clip, other);
            if (!shared) continue;
            throw FarmError(clip.input.string() + " and " + other.input.string() +
                            " would both become " + shared->string() +
                            ". Give each result a name of its own.");
        }
    }
}

/// Names of files in the folder that the scheduler, or a line of 'ruvex farm plan', would read as
/// something else.
void checkFolderName(const fs::path& folder) {
    for (const char letter : folder.string()) {
        if (letter == '%' || letter == '\\' || static_cast<unsigned char>(letter) < ' ') {
            throw FarmError("The name of the folder " + folder.string() +
                            " may not contain '%', '\\' or control characters, which Slurm reads "
                            "in its own way. Name another one with --folder.");
        }
    }
}

/// The folder under a name that nobody looks at, removed unless it gets its final one.
class NewFolder {
public:
    explicit NewFolder(const fs::path& final) : final_(final), layout_(madeBeside(final)) {
        for (const fs::path& folder : {layout_.folder() / "jobs", layout_.logs(), layout_.chunks(),
                                       layout_.begun(), layout_.done(), layout_.failed()}) {
            std::error_code error;
            fs::create_directory(folder, error);
            if (error) throw FarmError(files::writeFailure(final_, error.value()));
        }
    }
    ~NewFolder() {
        std::error_code ignored;
        if (!kept_) fs::remove_all(layout_.folder(), ignored);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    const Layout& layout() const { return layout_; }

    void keep() {
        std::error_code error;
        fs::rename(layout_.folder(), final_, error);
        if (error) {
            throw FarmError("The folder " + final_.string() +
                            " cannot be made: " + error.message() + ".");
        }
        kept_ = true;
    }

private:
    /// A folder that was not there. A process of this number may have left some.
    static fs::path madeBeside(const fs::path& final) {
        for (;;) {
            const fs::path folder = files::partialName(final);
            std::error_code error;
            if (fs::create_directory(folder, error)) return folder;
            if (error) throw FarmError(files::writeFailure(final, error.value()));
        }
    }

    fs::path final_;
    Layout layout_;
    bool kept_ = false;
};

void checkNew(const Layout& layout) {
    std::error_code error;
    if (fs::exists(layout.farmFile(), error)) {
        throw FarmError(layout.folder().string() +
                        " holds a farm job already: 'ruvex farm resume' "
                        "goes on with it, and --folder names another folder.");
    }
    if (fs::exists(layout.folder(), error)) {
        throw FarmError(layout.folder().string() +
                        " exists already and holds no farm job. Choose another with --folder.");
    }
}

}  // namespace

fs::path usualFolder(const fs::path& output) {
    const files::NumberedPath numbered(output);
    std::string name = output.filename().string();
    if (numbered.isPattern()) {
        name = numbered.beforeNumber();
        while (!name.empty() && std::string("._- ").find(name.back()) != std::string::npos) {
            name.pop_back();
        }
        if (name.empty()) name = "pictures";
    }
    return output.parent_path() / (name + ".farm");
}

Farm makeFarm(const FarmWish& wish, std::vector<jobs::Note>& notes) {
    const Layout layout(wish.folder.empty() ? usualFolder(wish.jobs.at(0).output) : wish.folder);
    checkFolderName(layout.folder());
    checkNew(layout);
    FarmJob job{.id = newId(),
                .program = runningProgram(),
                .chunkFrames = wish.chunkFrames,
                .keepChunks = wish.keepChunks,
                .arrayLength = wish.limits.arrayLength,
                .scheduler = wish.scheduler,
                .clips = {}};
    std::vector<std::string> texts;
    std::vector<std::vector<std::byte>> indexes;
    for (const jobs::RenderJob& one : wish.jobs) {
        const jobs::RenderJob fixed = fixedJob(one);
        const std::string& text = texts.emplace_back(jobs::jobText(fixed, {}));
        const PlannedClip planned = plannedJob(fixed, notes, Planning::First);
        FarmClip clip = clipOf(clipName(job.clips.size(), fixed.output), fixed, planned.plan, text);
        indexes.push_back(planned.reader->index());
        clip.firstChunk = chunksOf(job);
        job.clips.push_back(std::move(clip));
    }
    checkFilesKept(job);
    checkLimits(job, wish.limits);
    NewFolder folder(layout.folder());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        writeText(folder.layout().jobFile(job.clips[i].name), texts[i]);
        if (!indexes[i].empty()) {
            files::writeWhole(folder.layout().indexFile(job.clips[i].name), indexes[i]);
        }
    }
    writeText(folder.layout().script(), batchScript(layout, job.id));
    writeText(folder.layout().farmFile(), farmText(job));
    folder.keep();
    return Farm(layout.folder());
}

}  // namespace ruvex::farm
