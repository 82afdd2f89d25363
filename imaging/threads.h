// The whole of the system's parallelism: one fork and join.

#pragma once

#include <cstdint>

namespace ruvex {

/// How many workers a fork has, the caller included: the processors of the machine, asked for
/// once, unless setWorkerCount came first. 1 while threading is disabled.
std::int32_t workerCount();

/// The calling thread's index in the fork that started it; 0 on every other thread.
std::int32_t workerIndex();

/// Fixes the worker count, so that a job gives the same picture on every machine. `count` is at
/// least 1 (false otherwise, and nothing changes). Waits for a running fork; call it before a
/// frame and not during one, since the frame's passes would not agree on their shares.
bool setWorkerCount(std::int32_t count);

/// Undoes setWorkerCount: the count is that of the machine's processors again. Waits in the same
/// way.
void useAllProcessors();

/// With `enabled` false everything runs on the caller.
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
