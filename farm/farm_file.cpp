#include "farm/farm_file.h"

#include "farm/farm_error.h"
#include "jobs/stored_path.h"
#include "looks/json_document.h"

namespace ruvex::farm {
namespace {

using looks::Json;

constexpr const char* kVersionName = "ruvexFarm";

Json schedulerJson(const SchedulerOptions& options) {
    Json json = {{"partition", options.partition},
                 {"account", options.account},
                 {"time", options.time},
                 {"joinTime", options.joinTime},
                 {"extra", options.extra}};
    if (options.maxTasks) json["maxTasks"] = *options.maxTasks;
    return json;
}

SchedulerOptions schedulerFrom(const Json& json) {
    SchedulerOptions options{.partition = json.at("partition"),
                             .account = json.at("account"),
                             .time = json.at("time"),
                             .joinTime = json.at("joinTime"),
                             .extra = json.at("extra")};
    if (json.contains("maxTasks")) options.maxTasks = json["maxTasks"].get<int>();
    return options;
}

/// Under the names "inputBytes" and "inputModified".
void addStamp(Json& json, const std::string& name, const std::optional<files::FileStamp>& stamp) {
    if (!stamp) return;
    json[name + "Bytes"] = stamp->bytes;
    json[name + "Modified"] = stamp->modified;
}

std::optional<files::FileStamp> stampIn(const Json& json, const std::string& name) {
    if (!json.contains(name + "Bytes")) return std::nullopt;
    return files::FileStamp{json[name + "Bytes"], json.at(name + "Modified")};
}

Json clipJson(const FarmClip& clip) {
    Json json = {{"name", clip.name},
                 {"jobDigest", clip.jobDigest},
                 {"input", jobs::storedPath(clip.input, {})},
                 {"output", jobs::storedPath(clip.output, {})},
                 {"firstFrame", clip.frames.first},
                 {"lastFrame", clip.frames.last},
                 {"chunkExtension", clip.chunkExtension},
                 {"firstChunk", clip.firstChunk}};
    addStamp(json, "input", clip.inputStamp);
    if (!clip.mask.empty()) json["mask"] = jobs::storedPath(clip.mask, {});
    addStamp(json, "mask", clip.maskStamp);
    return json;
}

FarmClip clipFrom(const Json& json) {
    FarmClip clip{.name = json.at("name"),
                  .jobDigest = json.at("jobDigest"),
                  .input = jobs::pathFromStored(json.at("input"), {}),
                  .output = jobs::pathFromStored(json.at("output"), {}),
                  .frames = {json.at("firstFrame"), json.at("lastFrame")},
                  .chunkExtension = json.at("chunkExtension"),
                  .firstChunk = json.at("firstChunk")};
    clip.inputStamp = stampIn(json, "input");
    if (json.contains("mask")) clip.mask = jobs::pathFromStored(json["mask"], {});
    clip.maskStamp = stampIn(json, "mask");
    return clip;
}

/// Chunks follow one another without a gap, and each has frames.
void checkChunks(const FarmJob& job) {
    std::int64_t next = 0;
    bool sound = job.chunkFrames > 0 && job.arrayLength > 0 && !job.clips.empty();
    for (const FarmClip& clip : job.clips) {
        const jobs::FrameRange& frames = clip.frames;
        sound = sound && clip.firstChunk == next && frames.first >= 0 &&
                frames.last >= frames.first && frames.last < jobs::kFrameNumberEnd;
        if (!sound) break;
        next += chunksOf(job, clip);
    }
    if (!sound) throw looks::JsonError("its chunks do not make sense.");
}

ProgramIdentity programFrom(const Json& json) {
    return {json.at("version"), json.at("build"), json.at("libraries")};
}

FarmJob farmFrom(const Json& json) {
    if (json.at(kVersionName) != kFarmVersion) {
        throw looks::JsonError(
            "it is of another version than this program's. Use the ruvex that "
            "made it.");
    }
    FarmJob job{.id = json.at("id"),
                .program = programFrom(json.at("program")),
                .chunkFrames = json.at("chunkFrames"),
                .keepChunks = json.at("keepChunks"),
                .arrayLength = json.at("arrayLength"),
                .scheduler = schedulerFrom(json.at("scheduler")),
                .clips = {}};
    for (const Json& clip : json.at("clips")) job.clips.push_back(clipFrom(clip));
    checkChunks(job);
    return job;
}

}  // namespace

std::string farmText(const FarmJob& job) {
    Json clips = Json::array();
    for (const FarmClip& clip : job.clips) clips.push_back(clipJson(clip));
    const Json json = {{kVersionName, kFarmVersion},
                       {"id", job.id},
                       {"program",
                        {{"version", job.program.version},
                         {"build", job.program.build},
                         {"libraries", job.program.libraries}}},
                       {"chunkFrames", job.chunkFrames},
                       {"keepChunks", job.keepChunks},
                       {"arrayLength", job.arrayLength},
                       {"scheduler", schedulerJson(job.scheduler)},
                       {"clips", clips}};
    return json.dump(2) + "\n";
}

FarmJob parseFarm(const std::string& name, const std::string& text) {
    try {
        return farmFrom(looks::parseJson(text));
    } catch (const looks::JsonError& error) {
        throw FarmError(name + ": " + error.what());
    } catch (const Json::exception&) {
        throw FarmError(name + ": this is not a farm job that ruvex has made.");
    }
}

}  // namespace ruvex::farm
