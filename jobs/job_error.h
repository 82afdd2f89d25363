// What is wrong with a render job, by the field that is to be changed.

#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ruvex::jobs {

/// The fields of a RenderJob, in the order in which a job file holds them.
enum class JobField {
    Input,
    InputFormat,
    Size,
    Rate,
    Alpha,
    FieldOrder,
    Output,
    OutputFormat,
    OutputSize,
    ResultAlpha,
    Codec,
    Quality,
    EncoderSpeed,
    EncoderThreads,
    ExrPixels,
    ExrCompression,
    Mute,
    Frames,
    Depth,
    Workers,
    ProjectSize,
    PixelAspect,
    Region,
    Fields,
    Mask,
    Ends,
    Comparison,
    FramesAtOnce,
    Resume,
    Parameters,
};

/// The field's name in a job file: "projectSize".
std::string_view fieldName(JobField field);

/// A job that cannot be done as it stands: a sentence without the field's name, which a front end
/// puts before it in its own way, and a second field that the user may want to set.
class JobError : public std::runtime_error {
public:
    JobError(JobField field, const std::string& sentence, std::optional<JobField> see = {})
        : std::runtime_error(sentence), field_(field), see_(see) {}

    JobField field() const { return field_; }
    std::optional<JobField> see() const { return see_; }

private:
    JobField field_;
    std::optional<JobField> see_;
};

/// Something that the user should know although the render goes on. Same parts as JobError.
struct Note {
    JobField field = JobField::Input;
    std::string sentence;
    std::optional<JobField> see{};
};

}  // namespace ruvex::jobs
