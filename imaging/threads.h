// Fork and join: runs a function on all worker threads at once and waits for it.

#pragma once

#include <cstdint>

namespace ruvex {

/// The number of workers of a fork by the calling thread, the caller included: the count of the
/// innermost WorkerCountScope, or else the number of the machine's processors. On a worker: the
/// number of workers of its fork. 1 while threading is disabled.
std::int32_t workerCount();

/// The calling worker's index in its fork; 0 on every other thread.
std::int32_t workerIndex();

/// Sets the worker count of the calling thread's forks during the object's lifetime; its destructor
/// restores the previous count. Other threads are not affected. Scopes must be nested.
class WorkerCountScope {
public:
    /// A `count` of 0 or below means the number of the machine's processors.
    explicit WorkerCountScope(std::int32_t count);
    ~WorkerCountScope();
    WorkerCountScope(const WorkerCountScope&) = delete;
    WorkerCountScope& operator=(const WorkerCountScope&) = delete;

private:
    std::int32_t before_;
};

/// With `enabled` false, every fork in the process runs on its caller alone. Waits until no fork is
/// running.
void setThreadingEnabled(bool enabled);

namespace detail {
/// Calls job(context) once on each worker and returns when all have finished.
void fork(void (*job)(void* context), void* context);
}  // namespace detail

/// Runs `function(arguments...)` on every worker at once and returns when all have finished. The
/// caller is worker 0. Forks of different threads take turns. A worker must not fork.
template <class Function, class... Arguments>
void runOnAllThreads(Function function, Arguments*... arguments) {
    auto call = [&] { function(arguments...); };
    detail::fork([](void* context) { (*static_cast<decltype(call)*>(context))(); }, &call);
}

/// A worker's share of `rows` rows. Shares are contiguous and equal, rounded up; the last worker
/// gets the remaining rows. If there are too few rows, some shares have end <= first.
struct RowShare {
    std::int32_t first;
    std::int32_t end;  ///< one past the last
};
RowShare shareOfRows(std::int32_t rows, std::int32_t workers, std::int32_t worker);

}  // namespace ruvex
