// Render jobs as JSON: for a queue, for another machine, for a bug report.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "jobs/render_job.h"

namespace ruvex::jobs {

/// The version that is written. Files of this one and of all earlier ones are read.
inline constexpr int kJobVersion = 1;

/// A job file with wrong contents: a sentence that begins with the file's name.
class JobFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The job as the text of a job file; fields that have their default are left out, and of changes
/// of one parameter all but the last. Relative paths are written relative to `folder`, or as they
/// stand if it is empty.
std::string jobText(const RenderJob& job, const std::filesystem::path& folder);

/// Reads what jobText has written: with the same `folder` relative paths name the same files, and
/// with an empty one an equal job comes back. `name` is the file's, for messages. Throws
/// JobFileError: text that is not JSON, an unknown field, a later version, a value that the field
/// does not take. What the whole job asks for is not checked; see checkJob. Values of parameters
/// that the render will clamp are reported in `warnings`.
RenderJob parseJob(const std::string& name, const std::string& text,
                   const std::filesystem::path& folder, std::vector<std::string>& warnings);

/// The same with a file; paths count from its folder. writeJob throws files::FileError, readJob
/// JobFileError, and files::FileError if the file cannot be read or has more than 16 MB.
void writeJob(const RenderJob& job, const std::filesystem::path& file);
RenderJob readJob(const std::filesystem::path& file, std::vector<std::string>& warnings);

}  // namespace ruvex::jobs
