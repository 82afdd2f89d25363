// How much a command reports.

#pragma once

#include "cli/command_table.h"
#include "cli/progress.h"

namespace ruvex::cli {

struct TalkOptions {
    bool quiet = false;
    bool verbose = false;
};

/// Adds --quiet and --verbose.
void addTalkOptions(OptionTable& table, TalkOptions& options);

/// Throws UsageError for both at once.
Talk talkOf(const TalkOptions& options);

}  // namespace ruvex::cli
