// The whole of the system's parallelism: one fork-and-join operation.

#pragma once

#include <cstdint>

namespace ruvex {

/// How many workers a fork of the calling thread has, the caller included: the count of the
/// innermost WorkerCountScope, or the number of the machine's processors, which is asked for once.
/// Inside a fork, on each of its workers, the number of that fork's workers. 1 while threading is
/// disabled.
std::int32_t workerCount();

/// The calling thread's index in the fork that started it; 0 on every other thread.
std::int32_t workerIndex();

/// Sets the worker count of the calling thread's forks for as long as the object lives; then the
/// count before holds again. Other threads keep theirs. Scopes of a thread end in reverse order.
class WorkerCountScope {
public:
    /// `count` of 0 or below stands for the number of the machine's processors.
    explicit WorkerCountScope(std::int32_t count);
    ~WorkerCountScope();
    WorkerCountScope(const WorkerCountScope&) = delete;
    WorkerCountScope& operator=(const WorkerCountScope&) = delete;

private:
    std::int32_t before_;
};

/// With `enabled` false everything runs on the caller, on every thread of the process. Waits for a
/// running fork.
void setThreadingEnabled(bool enabled);

namespace detail {
/// Calls job(context) once on each worker and returns when all have finished.
void fork(void (*job)(void* context), void* context);
}  // namespace detail

/// Runs `function(arguments...)` on every worker at once, the caller being worker 0, and returns
/// when all have finished. Forks of different callers take turns. A worker must not fork.
template <class Function, class... Arguments>
void runOnAllThreads(Function function, Arguments*... arguments) {
    auto call = [&] { function(arguments...); };
    detail::fork([](void* context) { (*static_cast<decltype(call)*>(context))(); }, &call);
}

/// A worker's part of `rows` rows: shares are contiguous and equal, the last worker takes what is
/// left, and surplus workers get an empty or negative part.
struct RowShare {
    std::int32_t first;
    std::int32_t end;  ///< one past the last
};
RowShare shareOfRows(std::int32_t rows, std::int32_t workers, std::int32_t worker);

}  // namespace ruvex
