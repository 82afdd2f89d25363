#include "jobs/job_file.h"

#include <span>
#include <type_traits>

#include "files/whole_file.h"
#include "files/words.h"
#include "jobs/job_values.h"
#include "looks/look_file.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;
using looks::Json;
using looks::JsonError;

constexpr const char* kVersionName = "ruvexJob";

/// Calls visitor(field, member) for every field of a job, in the order of the file.
template <class Job, class Visitor>
void visitFields(Job& job, const Visitor& visitor) {
    visitor(JobField::Input, job.input);
    visitor(JobField::InputFormat, job.inputFormat);
    visitor(JobField::Size, job.size);
    visitor(JobField::Rate, job.rate);
    visitor(JobField::Alpha, job.alpha);
    visitor(JobField::FieldOrder, job.fieldOrder);
    visitor(JobField::Output, job.output);
    visitor(JobField::OutputFormat, job.outputFormat);
    visitor(JobField::OutputSize, job.outputSize);
    visitor(JobField::ResultAlpha, job.resultAlpha);
    visitor(JobField::Codec, job.codec);
    visitor(JobField::Quality, job.quality);
    visitor(JobField::EncoderSpeed, job.encoderSpeed);
    visitor(JobField::EncoderThreads, job.encoderThreads);
    visitor(JobField::ExrPixels, job.exrPixels);
    visitor(JobField::ExrCompression, job.exrCompression);
    visitor(JobField::Mute, job.mute);
    visitor(JobField::Frames, job.frames);
    visitor(JobField::Depth, job.depth);
    visitor(JobField::Workers, job.workers);
    visitor(JobField::ProjectSize, job.projectSize);
    visitor(JobField::PixelAspect, job.pixelAspect);
    visitor(JobField::Region, job.region);
    visitor(JobField::Fields, job.fields);
    visitor(JobField::Mask, job.mask);
    visitor(JobField::Ends, job.ends);
    visitor(JobField::Comparison, job.comparison);
    visitor(JobField::FramesAtOnce, job.framesAtOnce);
    visitor(JobField::Resume, job.resume);
    visitor(JobField::Parameters, job.parameters);
}

/// Builds the text member by member: one line each, and the parameters one line each below them.
class JobWriter {
public:
    explicit JobWriter(const fs::path& folder) : folder_(folder) {}

    void add(std::string_view name, const std::string& json) {
        text_.append(text_.empty() ? "{\n  " : ",\n  ").append(Json(name).dump());
        text_.append(": ").append(json);
    }
    template <class Value>
    void add(JobField field, const Value& value) {
        add(fieldName(field), jobJson(value, folder_).dump());
    }
    template <class Value>
    void add(JobField field, const std::optional<Value>& value) {
        if (value) add(field, *value);
    }
    void add(JobField field, const std::vector<looks::ParameterChange>& changes) {
        add(fieldName(field), looks::lookText(looks::lastChanges(changes), 2));
    }
    std::string finished() const { return text_ + "\n}\n"; }

private:
    const fs::path& folder_;
    std::string text_;
};

void readField(RenderJob& job, const std::string& name, const Json& json,
               const JobContext& context) {
    bool known = false;
    visitFields(job, [&](JobField field, auto& member) {
        if (fieldName(field) != name) return;
        known = true;
        try {
            readJobValue(json, context, member);
        } catch (const JsonError& error) {
            throw JsonError(name + ": " + error.what());
        }
    });
    if (!known) throw JsonError("a render job has no field " + files::inQuotes(name) + ".");
}

void checkVersion(const Json& document, const JobContext& context) {
    if (!document.is_object() || !document.contains(kVersionName)) {
        throw JsonError(std::string("this is not a render job: it has no field ") +
                        files::inQuotes(kVersionName) + ".");
    }
    int version = 0;
    readJobValue(document[kVersionName], context, version);
    if (version < 1) throw JsonError("there is no version " + std::to_string(version) + ".");
    if (version > kJobVersion) {
        throw JsonError("this job is of version " + std::to_string(version) +
                        ", and this program reads versions up to " + std::to_string(kJobVersion) +
                        ". Use a later ruvex.");
    }
}

RenderJob jobFromJson(const Json& document, const JobContext& context) {
    checkVersion(document, context);
    RenderJob job;
    for (const auto& [name, value] : document.items()) {
        if (name != kVersionName) readField(job, name, value, context);
    }
    for (const JobField needed : {JobField::Input, JobField::Output}) {
        const std::string name(fieldName(needed));
        if (!document.contains(name))
            throw JsonError("the field " + files::inQuotes(name) + " is missing.");
    }
    return job;
}

}  // namespace

std::string jobText(const RenderJob& job, const fs::path& folder) {
    const RenderJob usual;
    JobWriter writer(folder);
    writer.add(kVersionName, std::to_string(kJobVersion));
    // Fields with their default say nothing.
    visitFields(job, [&](JobField field, const auto& member) {
        visitFields(usual, [&](JobField other, const auto& usualMember) {
            if constexpr (std::is_same_v<decltype(member), decltype(usualMember)>) {
                if (field == other && member != usualMember) writer.add(field, member);
            }
        });
    });
    return writer.finished();
}

RenderJob parseJob(const std::string& name, const std::string& text, const fs::path& folder,
                   std::vector<std::string>& warnings) {
    std::vector<std::string> found;
    try {
        RenderJob job = jobFromJson(looks::parseJson(text), {folder, found});
        for (const std::string& warning : found) {
            warnings.push_back(name + ": " + warning);
        }
        return job;
    } catch (const JsonError& error) {
        throw JobFileError(name + ": " + error.what());
    }
}

void writeJob(const RenderJob& job, const fs::path& file) {
    const std::string text = jobText(job, files::folderOf(file));
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

RenderJob readJob(const fs::path& file, std::vector<std::string>& warnings) {
    return parseJob(file.string(), looks::readJsonText(file), file.parent_path(), warnings);
}

}  // namespace ruvex::jobs
