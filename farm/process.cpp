#include "farm/process.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "farm/farm_error.h"

extern char** environ;

namespace ruvex::farm {
namespace {

/// A pipe both of whose ends are closed when they are not needed any more.
class Pipe {
public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0) throw FarmError("The system has no pipe left.");
    }
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int reading() const { return ends_[0]; }
    int writing() const { return ends_[1]; }
    void closeWriting() { closeEnd(1); }

private:
    void closeEnd(std::size_t end) {
        if (ends_[end] >= 0) close(ends_[end]);
        ends_[end] = -1;
    }
    std::array<int, 2> ends_{-1, -1};
};

/// Reads both to their ends at the same time: a program that fills one must not wait for the other.
void readBoth(const Pipe& out, const Pipe& err, ProcessResult& result) {
    std::array<pollfd, 2> open = {pollfd{out.reading(), POLLIN, 0},
                                  pollfd{err.reading(), POLLIN, 0}};
    const std::array<std::string*, 2> texts = {&result.out, &result.err};
    while (open[0].fd >= 0 || open[1].fd >= 0) {
        if (poll(open.data(), open.size(), -1) < 0 && errno != EINTR) return;
        for (std::size_t i = 0; i < open.size(); ++i) {
            std::array<char, 4096> part{};
            if (open[i].fd < 0 || open[i].revents == 0) continue;
            const ssize_t count = read(open[i].fd, part.data(), part.size());
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) open[i].fd = -1;
            if (count > 0) texts[i]->append(part.data(), static_cast<std::size_t>(count));
        }
    }
}

/// 0, or the errno of the failure.
int spawn(const std::vector<std::string>& words, const Pipe& out, const Pipe& err, pid_t& process) {
    std::vector<char*> argv;
    for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out.writing(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.writing(), STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    // A group of its own, so that Ctrl-C does not end a scheduler's program halfway.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    const int failed = posix_spawnp(&process, argv[0], &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failed;
}

}  // namespace

std::optional<ProcessResult> runProgram(const std::vector<std::string>& words) {
    Pipe out;
    Pipe err;
    pid_t process = -1;
    const int failed = spawn(words, out, err, process);
    if (failed == ENOENT) return std::nullopt;
    if (failed != 0) {
        throw FarmError("Cannot start " + words.front() + ": " + std::strerror(failed) + ".");
    }
    out.closeWriting();
    err.closeWriting();
    ProcessResult result;
    readBoth(out, err, result);
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

}  // namespace ruvex::farm
