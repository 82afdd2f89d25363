// A job, run for a person at a terminal.

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/job_words.h"
#include "cli/progress.h"
#include "jobs/render_job.h"

namespace ruvex::cli {

/// How a render is run and reported; none of it is part of the job.
struct RenderManner {
    Talk talk = Talk::Usual;
    bool dryRun = false;                 ///< Only report what would be done.
    std::filesystem::path saveParams{};  ///< Write the parameters in use there; empty: do not.
    std::optional<media::FrameSize> saveProjectSize{};  ///< Written with them.
    std::vector<std::filesystem::path> readFrom{};      ///< The look files, or the job file.
    std::string label{};                                ///< Before the line of progress.
    FieldText fieldText = optionText;  ///< What the user calls the fields of the job.
    /// The command that renders one frame alone, for the message about a frame that failed.
    std::function<std::string(std::int64_t frame)> repeat{};
};

/// Renders and reports; returns the exit status. Throws UsageError, media::MediaError,
/// runtime::Error and std::runtime_error for a frame that failed.
int renderClip(const jobs::RenderJob& job, const RenderManner& manner);

}  // namespace ruvex::cli
