#include "cli/stop_signals.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "cli/exit_status.h"
#include "files/partial_file.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What a program does that cannot be stopped, as in a library that decodes a large picture.
[[noreturn]] void workForever(const std::filesystem::path& result) {
    const StopSignals signals;
    const files::PartialFile file(result);
    while (true) std::this_thread::sleep_for(1h);
}

bool waitForFiles(const files::TempFolder& folder) {
    for (int i = 0; i < 1000 && folder.names().empty(); ++i) std::this_thread::sleep_for(5ms);
    return !folder.names().empty();
}

TEST(StopSignals, EndAProgramThatCannotBeStoppedAndLeaveNothing) {
    const files::TempFolder folder;
    const pid_t child = fork();
    if (child == 0) workForever(folder.file("result"));
    ASSERT_TRUE(waitForFiles(folder));
    const auto sent = Clock::now();
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    const auto waited = Clock::now() - sent;
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), kStopped);
    EXPECT_GT(waited, 1s) << "it has some time to end by itself";
    EXPECT_LT(waited, 2s);
    EXPECT_TRUE(folder.names().empty());
}

TEST(StopSignals, RequestAStopAndLetTheProgramEnd) {
    const StopSignals signals;
    EXPECT_FALSE(signals.token().stop_requested());
    raise(SIGINT);
    const auto sent = Clock::now();
    while (!signals.token().stop_requested() && Clock::now() - sent < 2s) {
        std::this_thread::sleep_for(1ms);
    }
    EXPECT_TRUE(signals.token().stop_requested());
}

}  // namespace
}  // namespace ruvex::cli
