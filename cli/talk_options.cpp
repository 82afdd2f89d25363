#include "cli/talk_options.h"

#include "cli/usage_error.h"

namespace ruvex::cli {

void addTalkOptions(OptionTable& table, TalkOptions& options) {
    table.push_back({"--quiet", "", "Report errors only", &options.quiet});
    table.push_back({"--verbose", "", "Report what is done, how it goes on, and how long it took",
                     &options.verbose});
}

Talk talkOf(const TalkOptions& options) {
    if (options.quiet && options.verbose) {
        throw UsageError("--quiet and --verbose exclude each other. Choose one.");
    }
    return options.quiet ? Talk::Quiet : options.verbose ? Talk::Verbose : Talk::Usual;
}

}  // namespace ruvex::cli
