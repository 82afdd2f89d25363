#include "cli/several_clips.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "cli/exit_status.h"
#include "cli/failure_report.h"
#include "cli/messages.h"
#include "cli/shell_text.h"
#include "cli/usage_error.h"
#include "cli/whole_sequence.h"
#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/frame_writer.h"
#include "media/video/video_codec.h"

namespace ruvex::cli {
namespace {

namespace fs = std::filesystem;

bool isFolder(const std::string& output) {
    std::error_code ignored;
    return output.ends_with('/') || fs::is_directory(output, ignored);
}

/// The codec is checked later: an unknown one fits no file.
bool canHold(const fs::path& file, const std::string& codec) {
    if (!media::canWrite(file)) return false;
    return codec.empty() || media::findVideoCodec(file, codec) != nullptr;
}

/// The input's own name where a file of this kind can be written.
fs::path resultName(const fs::path& input, const std::string& codec) {
    fs::path name = input.filename();
    if (media::fileKind(input) != media::FileKind::Video || canHold(name, codec)) return name;
    for (const char* extension : {".mp4", ".mov", ".mkv", ".mxf"}) {
        name.replace_extension(extension);
        if (canHold(name, codec)) return name;
    }
    return name.replace_extension(".mp4");
}

/// A pattern of numbered files has no file of its own name; the reader looks for its files.
void checkExists(const std::string& input) {
    std::error_code ignored;
    if (!files::NumberedPath(input).isPattern() && !fs::exists(input, ignored)) {
        throw UsageError("There is no file " + input + ".");
    }
}

/// "a, b, c"
std::string listOf(const std::vector<std::string>& inputs) {
    std::string text;
    for (const std::string& input : inputs) text.append(text.empty() ? "" : ", ").append(input);
    return text;
}

/// A sentence where the first input is a picture of a sequence, which may have been meant.
std::string sequenceHint(const RenderOptions& options) {
    auto whole = wholeSequence(options);
    if (!whole) return "";
    return wholeSequenceText(options, commandText("render", renderOptions(*whole)));
}

void checkInputs(const RenderOptions& options, bool folder) {
    const bool stream = std::ranges::count(options.inputs, "-") > 0;
    if (stream && folder) {
        throw UsageError("Standard input has no name: name the result, and not a folder.");
    }
    if (options.inputs.size() == 1) return;
    if (!folder) {
        const std::string hint = sequenceHint(options);
        throw UsageError("Several inputs (" + listOf(options.inputs) +
                         ") need a folder for their results, as in -o results/." +
                         (hint.empty() ? hint : std::string(" ").append(hint)));
    }
    if (!options.saveJob.empty()) throw UsageError("--save-job takes one input.");
    for (const std::string& input : options.inputs) checkExists(input);
}

void checkNames(const std::vector<RenderOptions>& clips) {
    std::map<std::string, std::string> inputs;
    for (const RenderOptions& clip : clips) {
        const std::string& input = clip.inputs.front();
        const auto [other, isNew] = inputs.emplace(clip.output, input);
        if (!isNew) {
            throw UsageError(other->second + " and " + input + " would both become " + clip.output +
                             ". Render them into different folders.");
        }
    }
}

/// Once, for all pictures of it.
void warnOfSequence(const std::vector<RenderOptions>& clips) {
    if (talkOf(clips.front().talk) == Talk::Quiet) return;
    for (const RenderOptions& clip : clips) {
        const std::string hint = sequenceHint(clip);
        if (hint.empty()) continue;
        printWarnings({hint});
        return;
    }
}

int renderAll(const std::vector<RenderOptions>& clips, const RenderOne& render) {
    warnOfSequence(clips);
    std::size_t failed = 0;
    for (const RenderOptions& clip : clips) {
        const std::string label = fs::path(clip.inputs.front()).filename().string() + ": ";
        const int status = statusOf([&] { return render(clip, label); });
        if (status == kStopped) return status;
        failed += status == kDone ? 0 : 1;
    }
    if (failed == 0) return kDone;
    printMessage(std::to_string(failed) + " of " + std::to_string(clips.size()) +
                 " clips failed; see above.");
    return kFailed;
}

}  // namespace

std::vector<RenderOptions> clipsOf(const RenderOptions& options) {
    const bool folder = isFolder(options.output);
    checkInputs(options, folder);
    if (!folder) return {options};
    std::vector<RenderOptions> clips;
    for (const std::string& input : options.inputs) {
        RenderOptions& clip = clips.emplace_back(options);
        clip.inputs = {input};
        clip.output = (fs::path(options.output) / resultName(input, options.codec)).string();
    }
    checkNames(clips);
    return clips;
}

void makeResultFolder(const RenderOptions& options) {
    const bool isNew = options.output.ends_with('/') && !fs::exists(options.output);
    if (!isNew || options.dryRun || !options.saveJob.empty()) return;
    std::error_code error;
    fs::create_directory(fs::path(options.output).parent_path(), error);
    if (error) {
        throw UsageError("The folder " + options.output + " cannot be made: " + error.message() +
                         ".");
    }
}

int renderClips(const RenderOptions& options, const RenderOne& render) {
    const std::vector<RenderOptions> clips = clipsOf(options);
    makeResultFolder(options);
    return clips.size() == 1 ? render(clips.front(), "") : renderAll(clips, render);
}

}  // namespace ruvex::cli
