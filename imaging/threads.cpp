#include "imaging/threads.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace ruvex {
namespace {

// A count of 0: as many workers as the machine has processors.
constexpr std::int32_t kAllProcessors = 0;

std::atomic<bool> threadingEnabled{true};

// Locked during a fork: renders of different effect objects take turns, one pass at a time.
std::mutex forkMutex;

thread_local std::int32_t wantedCount = kAllProcessors;
thread_local std::int32_t indexInFork = 0;

// The number of the machine's processors; 1 if unknown.
std::int32_t processorCount() {
    static const std::int32_t count =
        std::max(static_cast<std::int32_t>(std::thread::hardware_concurrency()), 1);
    return count;
}

// `count` is the fork's number of workers, on which a worker's share of rows depends.
void runAsWorker(std::int32_t index, std::int32_t count, void (*job)(void*), void* context) {
    const WorkerCountScope ofTheFork(count);
    indexInFork = index;
    job(context);
    indexInFork = 0;
}

// Starts workers 1 to count - 1. Returns the number of running workers including the caller, which
// is less than `count` if the system can't start more threads.
std::int32_t startWorkers(std::vector<std::thread>& threads, std::int32_t count, void (*job)(void*),
                          void* context) noexcept {
    std::int32_t index = 1;
    try {
        threads.reserve(static_cast<std::size_t>(count - 1));
        for (; index < count; ++index)
            threads.emplace_back(runAsWorker, index, count, job, context);
    } catch (const std::system_error&) {
    } catch (const std::bad_alloc&) {
    }
    return index;
}

}  // namespace

std::int32_t workerCount() {
    if (!threadingEnabled.load(std::memory_order_relaxed)) return 1;
    return wantedCount == kAllProcessors ? processorCount() : wantedCount;
}

std::int32_t workerIndex() {
    return indexInFork;
}

WorkerCountScope::WorkerCountScope(std::int32_t count)
    : before_(std::exchange(wantedCount, std::max(count, kAllProcessors))) {}

WorkerCountScope::~WorkerCountScope() {
    wantedCount = before_;
}

void setThreadingEnabled(bool enabled) {
    const std::lock_guard lock(forkMutex);
    threadingEnabled.store(enabled, std::memory_order_relaxed);
}

void detail::fork(void (*job)(void* context), void* context) {
    if (workerCount() <= 1) {
        job(context);
        return;
    }
    const std::lock_guard lock(forkMutex);
    const std::int32_t count = workerCount();
    std::vector<std::thread> threads;
    const std::int32_t running = startWorkers(threads, count, job, context);
    job(context);
    // Do the shares of the workers that could not be started, so that the picture is the same.
    for (std::int32_t index = running; index < count; ++index)
        runAsWorker(index, count, job, context);
    for (std::thread& thread : threads) thread.join();
}

RowShare shareOfRows(std::int32_t rows, std::int32_t workers, std::int32_t worker) {
    if (worker < 0 || workers < 1) return {0, rows};
    const std::int64_t share = (std::int64_t{rows} + workers - 1) / workers;
    const std::int64_t first = share * worker;
    std::int64_t end = std::min<std::int64_t>(first + share, rows);
    if (worker == workers - 1) end = rows;
    return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(end)};
}

}  // namespace ruvex
