// How a render is stopped from outside.

#pragma once

#include <atomic>
#include <cstdint>

namespace ruvex {

/// The code that a processor leaves in `progress` when it stops a render for want of memory.
inline constexpr std::uint32_t kOutOfMemoryCode = 1000;
/// The code that stands in `progress` when the host asked for the stop.
inline constexpr std::uint32_t kHostStopCode = 10000;

/// One record for each effect object, shared by pointer with every processor of its render.
/// Workers poll it for every row without a lock: the host is simply asked again by the next check
/// if an update is missed, hence relaxed atomics.
struct InterruptionRecord {
    /// Gets `context` and the place for a code; nonzero means stop. Called from several threads at
    /// once and as often as once a row.
    using Callback = std::uint32_t (*)(void* context, std::atomic<std::uint32_t>* progress);

    void* context = nullptr;
    Callback callback = nullptr;
    std::atomic<std::int32_t> interrupted{0};  ///< sticky: nonzero means the render is stopping
    std::atomic<std::uint32_t> progress{0};

    /// Starts a new frame with nothing interrupted.
    void reset(void* newContext, Callback newCallback);
};

/// Whether to stop. A null record cannot be interrupted.
bool interruptCheck(InterruptionRecord* record);

/// Stops the render because memory ran out. A null record is allowed.
void raiseOutOfMemory(InterruptionRecord* record);

}  // namespace ruvex
