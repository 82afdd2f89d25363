// The values of a render job in JSON.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "jobs/job_names.h"
#include "jobs/render_job.h"
#include "looks/json_document.h"

namespace ruvex::jobs {

/// A value as JSON. Relative paths are written relative to `folder`, unless it is empty.
looks::Json jobJson(const std::filesystem::path& path, const std::filesystem::path& folder);
looks::Json jobJson(const std::string& text, const std::filesystem::path& folder);
looks::Json jobJson(bool value, const std::filesystem::path& folder);
looks::Json jobJson(int value, const std::filesystem::path& folder);
looks::Json jobJson(double value, const std::filesystem::path& folder);
looks::Json jobJson(const media::FrameSize& size, const std::filesystem::path& folder);
looks::Json jobJson(const media::Rational& rate, const std::filesystem::path& folder);
looks::Json jobJson(const FrameRange& range, const std::filesystem::path& folder);
looks::Json jobJson(const Region& region, const std::filesystem::path& folder);
looks::Json jobJson(media::Depth depth, const std::filesystem::path& folder);
looks::Json jobJson(const Comparison& comparison, const std::filesystem::path& folder);

/// What the values of a file refer to, and where warnings about them go.
struct JobContext {
    const std::filesystem::path& folder;  ///< Of relative paths.
    std::vector<std::string>& warnings;
};

/// Reads what jobJson has written. Throws looks::JsonError for JSON of another type or form, and
/// for numbers that the type does not hold.
void readJobValue(const looks::Json& json, const JobContext& context, std::filesystem::path& path);
void readJobValue(const looks::Json& json, const JobContext& context, std::string& text);
void readJobValue(const looks::Json& json, const JobContext& context, bool& value);
void readJobValue(const looks::Json& json, const JobContext& context, int& value);
void readJobValue(const looks::Json& json, const JobContext& context, double& value);
void readJobValue(const looks::Json& json, const JobContext& context, media::FrameSize& size);
void readJobValue(const looks::Json& json, const JobContext& context, media::Rational& rate);
void readJobValue(const looks::Json& json, const JobContext& context, FrameRange& range);
void readJobValue(const looks::Json& json, const JobContext& context, Region& region);
void readJobValue(const looks::Json& json, const JobContext& context, media::Depth& depth);
void readJobValue(const looks::Json& json, const JobContext& context, Comparison& comparison);
void readJobValue(const looks::Json& json, const JobContext& context,
                  std::vector<looks::ParameterChange>& parameters);

/// Throws looks::JsonError: "7 is not a string."
[[noreturn]] void refuseJobValue(const looks::Json& json, const std::string& wanted);

/// Choices by their names.
template <class Choice>
requires std::is_enum_v<Choice> looks::Json jobJson(Choice choice, const std::filesystem::path&) {
    return nameOf(choice);
}

template <class Choice>
requires std::is_enum_v<Choice>
void readJobValue(const looks::Json& json, const JobContext&, Choice& choice) {
    const auto found =
        json.is_string() ? choiceNamed<Choice>(json.get<std::string>()) : std::nullopt;
    if (found) {
        choice = *found;
        return;
    }
    refuseJobValue(json, "one of " + choicesText<Choice>(", "));
}

template <class Value>
void readJobValue(const looks::Json& json, const JobContext& context, std::optional<Value>& value) {
    readJobValue(json, context, value.emplace());
}

}  // namespace ruvex::jobs
