#include "farm/records.h"

#include <chrono>
#include <span>
#include <system_error>

#include "farm/program_identity.h"
#include "files/file_error.h"
#include "files/numbered_path.h"
#include "files/whole_file.h"
#include "files/words.h"
#include "looks/json_document.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;
using looks::Json;

void writeJson(const fs::path& file, const Json& json) {
    const std::string text = json.dump(2) + "\n";
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

/// What `read` makes of the file's JSON; empty for a file that is missing or damaged.
template <class Read>
auto ifSound(const fs::path& file, Read read) -> std::optional<decltype(read(Json()))> {
    std::error_code error;
    if (!fs::exists(file, error)) return std::nullopt;
    try {
        return read(looks::parseJson(looks::readJsonText(file)));
    } catch (const files::FileError&) {
    } catch (const looks::JsonError&) {
    } catch (const Json::exception&) {
    }
    return std::nullopt;
}

std::optional<std::uintmax_t> sizeOf(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(file, error);
    return error ? std::nullopt : std::optional(bytes);
}

/// Of a sequence; empty if a picture is missing.
std::optional<std::uintmax_t> bytesOfPictures(const FarmClip& clip,
                                              const jobs::FrameRange& frames) {
    const files::NumberedPath pictures(clip.output);
    std::uintmax_t bytes = 0;
    for (std::int64_t k = frames.first; k <= frames.last; ++k) {
        const auto size = sizeOf(pictures.file(k));
        if (!size) return std::nullopt;
        bytes += *size;
    }
    return bytes;
}

}  // namespace

double secondsNow() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

void writeDone(const fs::path& file, const DoneRecord& record) {
    writeJson(file, {{"firstFrame", record.frames.first},
                     {"lastFrame", record.frames.last},
                     {"digest", record.digest},
                     {"bytes", record.bytes},
                     {"seconds", record.seconds},
                     {"finished", record.finished},
                     {"host", record.host},
                     {"program", toText(runningProgram())}});
}

std::optional<DoneRecord> readDone(const fs::path& file, const jobs::FrameRange& frames) {
    const auto record = ifSound(file, [](const Json& json) {
        return DoneRecord{.frames = {json.at("firstFrame"), json.at("lastFrame")},
                          .digest = json.at("digest"),
                          .bytes = json.at("bytes"),
                          .seconds = json.at("seconds"),
                          .finished = json.at("finished"),
                          .host = json.at("host")};
    });
    return record && record->frames == frames ? record : std::nullopt;
}

void writeFailure(const fs::path& file, const FailureRecord& record) {
    try {
        writeJson(file, {{"sentence", files::printable(record.sentence)}, {"host", record.host}});
    } catch (const files::FileError&) {
        // A full disk is a likely reason of the failure itself.
    }
}

std::optional<FailureRecord> readFailure(const fs::path& file) {
    return ifSound(file, [](const Json& json) {
        return FailureRecord{json.at("sentence"), json.at("host")};
    });
}

std::optional<std::uintmax_t> bytesOf(const Farm& farm, const FarmChunk& chunk) {
    const jobs::Chunk part = farm.inRender(chunk);
    if (!part.file.empty()) return sizeOf(part.file);
    return bytesOfPictures(farm.clipOf(chunk), chunk.frames);
}

std::optional<DoneRecord> completeChunk(const Farm& farm, const FarmChunk& chunk) {
    auto record = readDone(farm.layout().doneRecord(chunk.number), chunk.frames);
    return record && bytesOf(farm, chunk) == record->bytes ? record : std::nullopt;
}

std::optional<DoneRecord> completeClip(const Farm& farm, std::size_t clip) {
    const FarmClip& one = farm.job().clips.at(clip);
    auto record = readDone(farm.layout().joinRecord(clip), one.frames);
    if (!record) return std::nullopt;
    const auto bytes = one.isJoined() ? sizeOf(files::NumberedPath(one.output).plain())
                                      : bytesOfPictures(one, one.frames);
    return bytes == record->bytes ? record : std::nullopt;
}

}  // namespace ruvex::farm
