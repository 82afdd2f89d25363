#include "cli/stop_signals.h"

#include <array>
#include <csignal>
#include <semaphore.h>
#include <utility>

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

}  // namespace

StopSignals::StopSignals(std::stop_source source) : source_(std::move(source)) {
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
    while (!ended.stop_requested()) {
        if (sem_wait(&arrived) == 0 && !ended.stop_requested()) source_.request_stop();
    }
}

}  // namespace ruvex::cli
