// What the system refuses, in words.

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

/// The superuser has no limit on threads, and another user may have threads already.
constexpr uid_t kUnusedUser = 54321;

/// In a child process: takes the rights and the threads.
void limitThreads(rlim_t threads) {
    const rlimit limit{threads, threads};
    if (setrlimit(RLIMIT_NPROC, &limit) != 0) _exit(99);
    if (geteuid() == 0 && setuid(kUnusedUser) != 0) _exit(99);
}

/// What the command prints with so many threads for its user; empty if it cannot be run so.
std::string printedWithThreads(rlim_t threads, const Arguments& arguments) {
    std::vector<char*> argv = {const_cast<char*>(RUVEX_COMMAND)};
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    int output[2];
    if (pipe(output) != 0) return "";
    if (fork() == 0) {
        dup2(output[1], STDERR_FILENO);
        limitThreads(threads);
        execv(RUVEX_COMMAND, argv.data());
        _exit(99);
    }
    close(output[1]);
    std::string text;
    std::array<char, 512> part{};
    for (ssize_t n = 0; (n = read(output[0], part.data(), part.size())) > 0;) {
        text.append(part.data(), static_cast<std::size_t>(n));
    }
    close(output[0]);
    wait(nullptr);
    return text;
}

TEST(Limits, ThatNoMoreThreadsCanBeStartedIsSaid) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "the sanitizer needs a thread of its own";
#endif
    files::TempFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    media::runFfmpeg(media::movingPicture("32x16", "25", 0.2), folder.file("in.mp4"));
    std::filesystem::permissions(folder.file("in.mp4"), std::filesystem::perms::all);
    const Arguments line = {"render", folder.file("in.mp4"), "-o", folder.file("out.mkv"), "--jobs",
                            "3"};
    const std::string all = printedWithThreads(4000, line);
    if (!std::filesystem::exists(folder.file("out.mkv"))) {
        GTEST_SKIP() << "another user may not run the command: " << all;
    }
    std::filesystem::remove(folder.file("out.mkv"));
    for (const rlim_t threads : {1, 2, 3, 4, 5, 6, 7}) {
        const std::string printed = printedWithThreads(threads, line);
        EXPECT_TRUE(holds(printed, "starts no more threads")) << threads << ": " << printed;
        EXPECT_TRUE(holds(printed, "ulimit -u")) << printed;
        EXPECT_EQ(folder.names(), std::vector<std::string>{"in.mp4"});
    }
}

}  // namespace
}  // namespace ruvex::cli
