#include "cli/stop_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <semaphore.h>
#include <utility>

#include "cli/exit_status.h"
#include "cli/messages.h"
#include "files/partial_file.h"

namespace ruvex::cli {
namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};

// A handler may post a semaphore, but not request a stop: that takes locks.
sem_t arrived;

extern "C" void postArrival(int) {
    sem_post(&arrived);
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler == SIG_IGN;
}

/// A stop is answered within two seconds; a little is left for the end of the program.
timespec afterGrace() {
    constexpr long kGraceInNanoseconds = 1'500'000'000;
    constexpr long kNanosecondsPerSecond = 1'000'000'000;
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    const long nanoseconds = time.tv_nsec + kGraceInNanoseconds;
    time.tv_sec += nanoseconds / kNanosecondsPerSecond;
    time.tv_nsec = nanoseconds % kNanosecondsPerSecond;
    return time;
}

/// Ends the program in the midst of what cannot be stopped, such as a library that decodes a large
/// picture.
[[noreturn]] void endNow(const char* sentence) {
    files::removeUnfinished();
    printMessage(sentence);
    std::_Exit(kStopped);
}

}  // namespace

StopSignals::StopSignals(std::stop_source source, const char* sentence)
    : source_(std::move(source)), sentence_(sentence) {
    sem_init(&arrived, 0, 0);
    watcher_ = std::jthread([this](const std::stop_token& ended) { watch(ended); });
    for (const int signal : kSignals) {
        if (!isIgnored(signal)) handle(signal, postArrival);
    }
    handle(SIGXFSZ, SIG_IGN);
}

StopSignals::~StopSignals() {
    for (const int signal : kSignals) {
        if (!isIgnored(signal)) handle(signal, SIG_DFL);
    }
    watcher_.request_stop();
    sem_post(&arrived);
    watcher_.join();
    sem_destroy(&arrived);
}

void StopSignals::watch(const std::stop_token& ended) {
    while (sem_wait(&arrived) != 0) {
    }
    if (ended.stop_requested()) return;
    source_.request_stop();
    const timespec deadline = afterGrace();
    while (!ended.stop_requested()) {
        if (sem_clockwait(&arrived, CLOCK_MONOTONIC, &deadline) != 0 && errno == ETIMEDOUT) {
            endNow(sentence_);
        }
    }
}

}  // namespace ruvex::cli
