#include "tests/cli/run_command.h"

#include <array>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace ruvex::cli {
namespace {

/// Both streams until both have ended: a command that fills one must not wait for the other.
void readAll(int out, int err, Outcome& outcome) {
    std::array<pollfd, 2> streams = {pollfd{out, POLLIN, 0}, pollfd{err, POLLIN, 0}};
    std::array<std::string*, 2> texts = {&outcome.out, &outcome.err};
    int open = 2;
    while (open > 0 && poll(streams.data(), streams.size(), -1) > 0) {
        for (std::size_t i = 0; i < streams.size(); ++i) {
            std::array<char, 4096> part{};
            if (streams[i].fd < 0 || streams[i].revents == 0) {
                continue;
            }
            const ssize_t count = read(streams[i].fd, part.data(), part.size());
            if (count <= 0) {
                streams[i].fd = -1;
                --open;
            } else {
                texts[i]->append(part.data(), static_cast<std::size_t>(count));
            }
        }
    }
}

}  // namespace

std::string Outcome::messages() const {
    if (!err.ends_with(".\n")) return err;
    const std::size_t before = err.rfind('\n', err.size() - 2);
    const std::size_t last = before == std::string::npos ? 0 : before + 1;
    const bool closes = err.find(" frames in ", last) != std::string::npos ||
                        err.find(": 1 frame in ", last) != std::string::npos;
    return closes ? err.substr(0, last) : err;
}

RunningCommand::RunningCommand(const Arguments& arguments, int input) {
    int out[2];
    int err[2];
    if (pipe(out) != 0 || pipe(err) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (input != STDIN_FILENO) {
        posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    }
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
    for (const int fd : {out[0], out[1], err[0], err[1]}) {
        posix_spawn_file_actions_addclose(&actions, fd);
    }
    std::vector<char*> argv = {const_cast<char*>(RUVEX_COMMAND)};
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    const int failed =
        posix_spawn(&process_, RUVEX_COMMAND, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(out[1]);
    close(err[1]);
    out_ = out[0];
    err_ = err[0];
    if (failed != 0) {
        throw std::runtime_error("cannot run " RUVEX_COMMAND);
    }
}

RunningCommand::~RunningCommand() {
    close(out_);
    close(err_);
}

void RunningCommand::send(int signal) const {
    kill(process_, signal);
}

bool RunningCommand::endsWithin(std::chrono::milliseconds time) const {
    constexpr std::chrono::milliseconds kPause{5};
    for (auto waited = kPause * 0; waited < time; waited += kPause) {
        siginfo_t ended{};
        waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT);
        if (ended.si_pid == process_) return true;
        std::this_thread::sleep_for(kPause);
    }
    return false;
}

Outcome RunningCommand::wait() {
    Outcome outcome;
    readAll(out_, err_, outcome);
    int status = 0;
    waitpid(process_, &status, 0);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

Outcome ruvex(const Arguments& arguments) {
    return RunningCommand(arguments).wait();
}

}  // namespace ruvex::cli
