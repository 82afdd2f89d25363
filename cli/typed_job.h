// The job that the options of a render ask for.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/render_options.h"
#include "jobs/render_job.h"

namespace ruvex::cli {

/// The job, with a comparison if there is one, checked as far as that is possible without its
/// input. Throws UsageError, and as readParameters does. May add to `warnings`.
jobs::RenderJob typedJob(const RenderOptions& options, std::vector<std::string>& warnings,
                         const std::optional<jobs::Comparison>& comparison = {});

}  // namespace ruvex::cli
