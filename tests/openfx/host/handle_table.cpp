#include "tests/openfx/host/handle_table.h"

#include <mutex>

namespace ruvex::ofxhost {

HandleTable& HandleTable::instance() {
    static HandleTable table;
    return table;
}

void* HandleTable::add(HandleKind kind, void* object) {
    // Multiples of this look like aligned pointers; the first pages of memory are never mapped.
    constexpr std::uintptr_t kStep = 16;
    const std::unique_lock lock(mutex_);
    last_ += kStep;
    entries_.emplace(last_, Entry{kind, object});
    return reinterpret_cast<void*>(last_);
}

void HandleTable::remove(const void* handle) {
    const std::unique_lock lock(mutex_);
    entries_.erase(reinterpret_cast<std::uintptr_t>(handle));
}

void* HandleTable::find(HandleKind kind, const void* handle) const {
    const std::shared_lock lock(mutex_);
    const auto found = entries_.find(reinterpret_cast<std::uintptr_t>(handle));
    if (found == entries_.end() || found->second.kind != kind) return nullptr;
    return found->second.object;
}

}  // namespace ruvex::ofxhost
