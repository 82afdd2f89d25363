// `ruvex render`: a clip through the effect, into a file.

#pragma once

#include "cli/command_table.h"
#include "cli/render_options.h"
#include "jobs/render_job.h"

namespace ruvex::cli {

Command renderCommand();

/// Runs a job that the options of a render ask for, or saves it where the options say so. `label`
/// begins the line of progress; `command` gives the command line that renders one frame alone.
/// Returns the exit status; throws as renderClip does.
int runTypedJob(const jobs::RenderJob& job, const RenderOptions& options, const std::string& label,
                std::function<std::string(std::int64_t frame)> command);

}  // namespace ruvex::cli
