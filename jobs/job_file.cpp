#include "jobs/job_file.h"

#include <limits>
#include <span>
#include <type_traits>

#include "files/whole_file.h"
#include "files/words.h"
#include "jobs/job_names.h"
#include "jobs/stored_path.h"
#include "looks/look_file.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;
using looks::Json;
using looks::JsonError;

constexpr std::size_t kMostBytes = std::size_t{16} << 20;

constexpr const char* kVersionName = "ruvexJob";

// Where the paths of a file count from, and where its warnings go.
struct Context {
    const fs::path& folder;
    std::vector<std::string>& warnings;
};

[[noreturn]] void refuse(const Json& value, const std::string& wanted) {
    throw JsonError(value.dump() + " is not " + wanted + ".");
}

// Values to JSON.

Json toJson(const fs::path& path, const fs::path& folder) {
    return storedPath(path, folder);
}
Json toJson(const std::string& text, const fs::path&) {
    return text;
}
Json toJson(bool value, const fs::path&) {
    return value;
}
Json toJson(int value, const fs::path&) {
    return value;
}
Json toJson(double value, const fs::path&) {
    return value;
}
Json toJson(const media::FrameSize& size, const fs::path&) {
    return {{"width", size.width}, {"height", size.height}};
}
Json toJson(const media::Rational& rate, const fs::path&) {
    return toText(rate);
}
Json toJson(const FrameRange& range, const fs::path&) {
    return {{"first", range.first}, {"last", range.last}};
}
Json toJson(const Region& region, const fs::path&) {
    return {{"x", region.x}, {"y", region.y}, {"width", region.width}, {"height", region.height}};
}
Json toJson(media::Depth depth, const fs::path&) {
    return depth == media::Depth::Bits8 ? 8 : 16;
}
Json toJson(const Comparison& comparison, const fs::path&) {
    Json json = {{"kind", nameOf(comparison.kind)}};
    if (comparison.kind == Comparison::Kind::Split) json["splitAt"] = comparison.splitAt;
    return json;
}
template <class Choice>
requires std::is_enum_v<Choice> Json toJson(Choice choice, const fs::path&) {
    return nameOf(choice);
}

// JSON to values.

template <class Integer>
Integer wholeNumber(const Json& json) {
    constexpr auto kLow = std::numeric_limits<Integer>::min();
    constexpr auto kHigh = std::numeric_limits<Integer>::max();
    if (json.is_number_unsigned() &&
        json.get<std::uint64_t>() <= static_cast<std::uint64_t>(kHigh)) {
        return static_cast<Integer>(json.get<std::uint64_t>());
    }
    if (!json.is_number_integer() || json.is_number_unsigned()) refuse(json, "a whole number");
    const auto value = json.get<std::int64_t>();
    if (value < kLow || value > kHigh) refuse(json, "a whole number of this field");
    return static_cast<Integer>(value);
}

/// The member of an object that has these names and no others.
class Members {
public:
    Members(const Json& json, std::initializer_list<const char*> names, const char* form)
        : json_(json) {
        bool good = json.is_object() && json.size() == names.size();
        for (const char* name : names) good = good && json.contains(name);
        if (!good) refuse(json, std::string("of the form ") + form);
    }
    template <class Integer>
    Integer whole(const char* name) const {
        return wholeNumber<Integer>(json_[name]);
    }

private:
    const Json& json_;
};

void read(const Json& json, const Context& context, fs::path& path) {
    path = pathFromStored(json, context.folder);
}
void read(const Json& json, const Context&, std::string& text) {
    if (!json.is_string()) refuse(json, "a string");
    text = json.get<std::string>();
}
void read(const Json& json, const Context&, bool& value) {
    if (!json.is_boolean()) refuse(json, "true or false");
    value = json.get<bool>();
}
void read(const Json& json, const Context&, int& value) {
    value = wholeNumber<int>(json);
}
void read(const Json& json, const Context&, double& value) {
    if (!json.is_number()) refuse(json, "a number");
    value = json.get<double>();
}
void read(const Json& json, const Context&, media::FrameSize& size) {
    const Members members(json, {"width", "height"}, "{\"width\": 720, \"height\": 576}");
    size = {members.whole<int>("width"), members.whole<int>("height")};
}
void read(const Json& json, const Context&, media::Rational& rate) {
    const auto parsed =
        json.is_string() ? media::parsePositiveRational(json.get<std::string>()) : std::nullopt;
    if (!parsed) refuse(json, "a rate as in \"25\" or \"30000/1001\"");
    rate = *parsed;
}
void read(const Json& json, const Context&, FrameRange& range) {
    const Members members(json, {"first", "last"}, "{\"first\": 0, \"last\": 99}");
    range = {members.whole<std::int64_t>("first"), members.whole<std::int64_t>("last")};
}
void read(const Json& json, const Context&, Region& region) {
    const Members members(json, {"x", "y", "width", "height"},
                          "{\"x\": 0, \"y\": 0, \"width\": 360, \"height\": 288}");
    region = {members.whole<int>("x"), members.whole<int>("y"), members.whole<int>("width"),
              members.whole<int>("height")};
}
void read(const Json& json, const Context&, media::Depth& depth) {
    const int bits = wholeNumber<int>(json);
    if (bits != 8 && bits != 16) refuse(json, "8 or 16");
    depth = bits == 8 ? media::Depth::Bits8 : media::Depth::S214;
}
template <class Choice>
requires std::is_enum_v<Choice>
void read(const Json& json, const Context&, Choice& choice) {
    const auto found =
        json.is_string() ? choiceNamed<Choice>(json.get<std::string>()) : std::nullopt;
    if (!found) {
        std::string all;
        for (const auto& [value, name] : namedChoices<Choice>()) {
            all.append(all.empty() ? "" : ", ").append(name);
        }
        refuse(json, "one of " + all);
    }
    choice = *found;
}
void read(const Json& json, const Context& context, Comparison& comparison) {
    if (!json.is_object() || !json.contains("kind") ||
        json.size() != (json.contains("splitAt") ? 2u : 1u)) {
        refuse(json, "of the form {\"kind\": \"split\", \"splitAt\": 0.5}");
    }
    read(json["kind"], context, comparison.kind);
    if (json.contains("splitAt")) read(json["splitAt"], context, comparison.splitAt);
}
void read(const Json& json, const Context& context,
          std::vector<looks::ParameterChange>& parameters) {
    parameters = looks::changesFromJson(json, context.warnings);
}
template <class Value>
void read(const Json& json, const Context& context, std::optional<Value>& value) {
    read(json, context, value.emplace());
}

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
    visitor(JobField::Codec, job.codec);
    visitor(JobField::Quality, job.quality);
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
        add(fieldName(field), toJson(value, folder_).dump());
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

void readField(RenderJob& job, const std::string& name, const Json& json, const Context& context) {
    bool known = false;
    visitFields(job, [&](JobField field, auto& member) {
        if (fieldName(field) != name) return;
        known = true;
        try {
            read(json, context, member);
        } catch (const JsonError& error) {
            throw JsonError(name + ": " + error.what());
        }
    });
    if (!known) throw JsonError("a render job has no field " + files::inQuotes(name) + ".");
}

void checkVersion(const Json& document) {
    if (!document.is_object() || !document.contains(kVersionName)) {
        throw JsonError("this is not a render job: it has no field '" + std::string(kVersionName) +
                        "'.");
    }
    const int version = wholeNumber<int>(document[kVersionName]);
    if (version < 1) throw JsonError("there is no version " + std::to_string(version) + ".");
    if (version > kJobVersion) {
        throw JsonError("this job is of version " + std::to_string(version) +
                        ", and this program reads versions up to " + std::to_string(kJobVersion) +
                        ". Use a later ruvex.");
    }
}

RenderJob jobFromJson(const Json& document, const Context& context) {
    checkVersion(document);
    RenderJob job;
    for (const auto& [name, value] : document.items()) {
        if (name != kVersionName) readField(job, name, value, context);
    }
    for (const JobField needed : {JobField::Input, JobField::Output}) {
        const std::string name(fieldName(needed));
        if (!document.contains(name)) throw JsonError("the field '" + name + "' is missing.");
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
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const std::string text = jobText(job, folder);
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

RenderJob readJob(const fs::path& file, std::vector<std::string>& warnings) {
    const std::vector<std::byte> bytes = files::readWhole(file, kMostBytes);
    return parseJob(file.string(), {reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                    file.parent_path(), warnings);
}

}  // namespace ruvex::jobs
