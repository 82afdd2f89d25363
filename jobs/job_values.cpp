#include "jobs/job_values.h"

#include <utility>

#include "jobs/stored_path.h"
#include "looks/look_file.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;
using looks::Json;
using looks::JsonError;

template <class Integer>
Integer wholeNumber(const Json& json) {
    if (!json.is_number_integer()) refuseJobValue(json, "a whole number");
    const bool fits = json.is_number_unsigned() ? std::in_range<Integer>(json.get<std::uint64_t>())
                                                : std::in_range<Integer>(json.get<std::int64_t>());
    if (!fits) throw JsonError(json.dump() + " is out of range.");
    return json.get<Integer>();
}

/// The member of an object that has these names and no others.
class Members {
public:
    Members(const Json& json, std::initializer_list<const char*> names, const char* form)
        : json_(json) {
        bool good = json.is_object() && json.size() == names.size();
        for (const char* name : names) good = good && json.contains(name);
        if (!good) refuseJobValue(json, std::string("of the form ") + form);
    }
    template <class Integer>
    Integer whole(const char* name) const {
        return wholeNumber<Integer>(json_[name]);
    }

private:
    const Json& json_;
};

}  // namespace

void refuseJobValue(const Json& json, const std::string& wanted) {
    throw JsonError(json.dump() + " is not " + wanted + ".");
}

Json jobJson(const fs::path& path, const fs::path& folder) {
    return storedPath(path, folder);
}
Json jobJson(const std::string& text, const fs::path&) {
    return text;
}
Json jobJson(bool value, const fs::path&) {
    return value;
}
Json jobJson(int value, const fs::path&) {
    return value;
}
Json jobJson(double value, const fs::path&) {
    return value;
}
Json jobJson(const media::FrameSize& size, const fs::path&) {
    return {{"width", size.width}, {"height", size.height}};
}
Json jobJson(const media::Rational& rate, const fs::path&) {
    return toText(rate);
}
Json jobJson(const FrameRange& range, const fs::path&) {
    return {{"first", range.first}, {"last", range.last}};
}
Json jobJson(const Region& region, const fs::path&) {
    return {{"x", region.x}, {"y", region.y}, {"width", region.width}, {"height", region.height}};
}
Json jobJson(media::Depth depth, const fs::path&) {
    return depth == media::Depth::Bits8 ? 8 : 16;
}
Json jobJson(const Comparison& comparison, const fs::path&) {
    Json json = {{"kind", nameOf(comparison.kind)}};
    if (comparison.splitAt != Comparison().splitAt) json["splitAt"] = comparison.splitAt;
    return json;
}

void readJobValue(const Json& json, const JobContext& context, fs::path& path) {
    path = pathFromStored(json, context.folder);
}
void readJobValue(const Json& json, const JobContext&, std::string& text) {
    if (!json.is_string()) refuseJobValue(json, "a string");
    text = json.get<std::string>();
}
void readJobValue(const Json& json, const JobContext&, bool& value) {
    if (!json.is_boolean()) refuseJobValue(json, "true or false");
    value = json.get<bool>();
}
void readJobValue(const Json& json, const JobContext&, int& value) {
    value = wholeNumber<int>(json);
}
void readJobValue(const Json& json, const JobContext&, double& value) {
    if (!json.is_number()) refuseJobValue(json, "a number");
    value = json.get<double>();
}
void readJobValue(const Json& json, const JobContext&, media::FrameSize& size) {
    const Members members(json, {"width", "height"}, R"({"width": 720, "height": 576})");
    size = {members.whole<int>("width"), members.whole<int>("height")};
}
void readJobValue(const Json& json, const JobContext&, media::Rational& rate) {
    const auto parsed =
        json.is_string() ? media::parsePositiveRational(json.get<std::string>()) : std::nullopt;
    if (!parsed) refuseJobValue(json, R"(a rate as in "25" or "30000/1001")");
    rate = *parsed;
}
void readJobValue(const Json& json, const JobContext&, FrameRange& range) {
    const Members members(json, {"first", "last"}, R"({"first": 0, "last": 99})");
    range = {members.whole<std::int64_t>("first"), members.whole<std::int64_t>("last")};
}
void readJobValue(const Json& json, const JobContext&, Region& region) {
    const Members members(json, {"x", "y", "width", "height"},
                          R"({"x": 0, "y": 0, "width": 360, "height": 288})");
    region = {members.whole<int>("x"), members.whole<int>("y"), members.whole<int>("width"),
              members.whole<int>("height")};
}
void readJobValue(const Json& json, const JobContext&, media::Depth& depth) {
    const int bits = wholeNumber<int>(json);
    if (bits != 8 && bits != 16) refuseJobValue(json, "8 or 16");
    depth = bits == 8 ? media::Depth::Bits8 : media::Depth::S214;
}
void readJobValue(const Json& json, const JobContext& context, Comparison& comparison) {
    if (!json.is_object() || !json.contains("kind") ||
        json.size() != (json.contains("splitAt") ? 2u : 1u)) {
        refuseJobValue(json, R"(of the form {"kind": "split", "splitAt": 0.5})");
    }
    readJobValue(json["kind"], context, comparison.kind);
    if (json.contains("splitAt")) readJobValue(json["splitAt"], context, comparison.splitAt);
}
void readJobValue(const Json& json, const JobContext& context,
                  std::vector<looks::ParameterChange>& parameters) {
    parameters = looks::changesFromJson(json, context.warnings);
}

}  // namespace ruvex::jobs
