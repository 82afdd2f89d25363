// Interruption of a render, by the host or for lack of memory.

#pragma once

#include <atomic>
#include <cstdint>

namespace ruvex {

/// Code in `progress`: there was not enough memory for the frame.
inline constexpr std::uint32_t kOutOfMemoryCode = 1000;
/// Code in `progress`: the host asked to stop the render.
inline constexpr std::uint32_t kHostStopCode = 10000;

/// Each effect object has one record; every processor of its render has a pointer to it. Workers
/// poll it once a row without a lock. Relaxed atomics are enough: a worker that misses an update
/// asks the host again at its next check.
struct InterruptionRecord {
    /// Asks the host whether to stop: nonzero means stop. The callback may store a code in
    /// `progress`. It is called from several threads at once, up to once a row.
    using Callback = std::uint32_t (*)(void* context, std::atomic<std::uint32_t>* progress);

    void* context = nullptr;
    Callback callback = nullptr;
    std::atomic<std::int32_t> interrupted{0};  ///< nonzero: the render is stopping, until reset
    std::atomic<std::uint32_t> progress{0};

    /// Clears the interruption, for a new frame.
    void reset(void* newContext, Callback newCallback);
};

/// Whether the render has to stop; asks the host. False for a null record.
bool interruptCheck(InterruptionRecord* record);

/// Stores kOutOfMemoryCode without stopping the render. Does nothing for a null record.
void noteOutOfMemory(InterruptionRecord* record);

/// Stops the render with kOutOfMemoryCode. Does nothing for a null record.
void raiseOutOfMemory(InterruptionRecord* record);

}  // namespace ruvex
