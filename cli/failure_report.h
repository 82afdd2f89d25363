// Failures as messages and exit statuses.

#pragma once

#include <functional>

namespace ruvex::cli {

/// The status that `run` returns. What it throws is reported on the standard error stream:
/// kWrongCommandLine for a UsageError, kFailed for everything else.
int statusOf(const std::function<int()>& run);

}  // namespace ruvex::cli
