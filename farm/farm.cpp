#include "farm/farm.h"

#include <algorithm>

#include "farm/farm_error.h"
#include "farm/farm_file.h"
#include "files/file_error.h"
#include "looks/json_document.h"
#include "media/digest.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

FarmJob openedJob(const Layout& layout) {
    std::string text;
    try {
        text = looks::readJsonText(layout.farmFile());
    } catch (const files::FileError&) {
        throw FarmError(hostName() + " sees no farm job in " + layout.folder().string() +
                        ". Check the name, and that every machine sees the folder under it.");
    }
    return parseFarm(layout.farmFile().string(), text);
}

}  // namespace

Farm::Farm(const fs::path& folder) : layout_(folder), job_(openedJob(layout_)) {}

FarmChunk Farm::chunk(std::int64_t number) const {
    if (number < 0 || number >= chunks()) {
        throw FarmError("There is no chunk " + std::to_string(number) + "; " +
                        layout_.folder().string() + " has the chunks 0-" +
                        std::to_string(chunks() - 1) + ".");
    }
    const auto after = std::ranges::upper_bound(job_.clips, number, {}, &FarmClip::firstChunk);
    const FarmClip& clip = *std::prev(after);
    const std::int64_t first = clip.frames.first + (number - clip.firstChunk) * job_.chunkFrames;
    return {number,
            static_cast<std::size_t>(&clip - job_.clips.data()),
            {first, std::min(first + job_.chunkFrames - 1, clip.frames.last)}};
}

const FarmClip& Farm::clip(std::int64_t number) const {
    if (number < 0 || number >= std::ssize(job_.clips)) {
        throw FarmError("There is no clip " + std::to_string(number) + " in " +
                        layout_.folder().string() + ".");
    }
    return job_.clips[static_cast<std::size_t>(number)];
}

jobs::Chunk Farm::inRender(const FarmChunk& chunk) const {
    const FarmClip& clip = clipOf(chunk);
    if (!clip.isJoined()) return {chunk.frames, {}};
    return {chunk.frames, layout_.chunkFile(chunk.clip, chunk.number, clip.chunkExtension)};
}

std::string toText(const Farm& farm, const FarmChunk& chunk) {
    return "chunk " + std::to_string(chunk.number) + " (frames " + toText(chunk.frames) + " of " +
           farm.clipOf(chunk).output.filename().string() + ")";
}

std::string joinText(const FarmClip& clip) {
    return (clip.isJoined() ? "the join of " : "the check of ") + clip.output.filename().string();
}

void checkId(const Farm& farm, const std::string& id) {
    if (id == farm.job().id) return;
    throw FarmError(hostName() + " sees another farm job in " + farm.layout().folder().string() +
                    " than the one that was submitted. Every machine has to see the same folder "
                    "under this name.");
}

std::string digestOfText(const std::string& text) {
    media::Digest digest;
    digest.add(text);
    return digest.finish();
}

void checkProgram(const Farm& farm) {
    if (runningProgram() == farm.job().program) return;
    throw FarmError(hostName() + " runs ruvex " + toText(runningProgram()) +
                    ", but the farm job was made by ruvex " + toText(farm.job().program) +
                    ". Install one and the same on every machine.");
}

void checkJobFile(const Farm& farm, const FarmClip& clip) {
    const fs::path file = farm.layout().jobFile(clip.name);
    if (digestOfText(looks::readJsonText(file)) == clip.jobDigest) return;
    throw FarmError(file.string() +
                    " was changed after the submission. Submit the changed job as a new one.");
}

}  // namespace ruvex::farm
