#include "imaging/interruption.h"

namespace ruvex {

void InterruptionRecord::reset(void* newContext, Callback newCallback) {
    context = newContext;
    callback = newCallback;
    interrupted.store(0, std::memory_order_relaxed);
    progress.store(0, std::memory_order_relaxed);
}

bool interruptCheck(InterruptionRecord* record) {
    if (!record) return false;
    if (record->interrupted.load(std::memory_order_relaxed) != 0) return true;
    if (!record->callback) return false;
    const std::uint32_t answer = record->callback(record->context, &record->progress);
    // 0 is not stored: another thread may have stopped the render in the meantime.
    if (answer != 0) {
        record->interrupted.store(static_cast<std::int32_t>(answer), std::memory_order_relaxed);
    }
    return record->interrupted.load(std::memory_order_relaxed) != 0;
}

void noteOutOfMemory(InterruptionRecord* record) {
    if (record) record->progress.store(kOutOfMemoryCode, std::memory_order_relaxed);
}

void raiseOutOfMemory(InterruptionRecord* record) {
    if (!record) return;
    noteOutOfMemory(record);
    record->interrupted.store(1, std::memory_order_relaxed);
}

}  // namespace ruvex
