#include "cli/interruption.h"

#include <atomic>
#include <csignal>

namespace ruvex::cli {
namespace {

std::atomic<bool> stopped = false;
static_assert(std::atomic<bool>::is_always_lock_free, "the only kind a signal may touch");

extern "C" void rememberStop(int signal) {
    stopped = true;
    // Some systems give the signal its default meaning back with the first one.
    std::signal(signal, rememberStop);
}

}  // namespace

void catchStopSignals() {
    std::signal(SIGINT, rememberStop);
    std::signal(SIGTERM, rememberStop);
#ifdef SIGHUP
    std::signal(SIGHUP, rememberStop);
    // A file that grows too large for the system's limit is to fail in words, as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

bool stopWished() {
    return stopped;
}

}  // namespace ruvex::cli
