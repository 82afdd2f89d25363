#include "cli/failure_report.h"

#include <new>
#include <string>
#include <system_error>

#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

int report(const std::string& sentence, int status) {
    printMessage(sentence);
    return status;
}

/// What the system has refused, and what to do about it.
std::string reasonOf(const std::system_error& error) {
    if (error.code() == std::errc::resource_unavailable_try_again) {
        return "the system starts no more threads: a limit on processes or on memory is reached. "
               "End other programs, use fewer --workers and --jobs, or raise the limits "
               "(ulimit -u, ulimit -v).";
    }
    return error.what();
}

}  // namespace

int statusOf(const std::function<int()>& run) {
    try {
        return run();
    } catch (const UsageError& error) {
        return report(error.what(), kWrongCommandLine);
    } catch (const std::bad_alloc&) {
        return report("there is not enough memory for frames of this size.", kFailed);
    } catch (const std::system_error& error) {
        return report(reasonOf(error), kFailed);
    } catch (const std::exception& error) {
        return report(error.what(), kFailed);
    }
}

}  // namespace ruvex::cli
