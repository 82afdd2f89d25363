// Handles for a plug-in: numbers that are never used again, so that a dead one is noticed.

#pragma once

#include <cstdint>
#include <shared_mutex>
#include <unordered_map>

namespace ruvex::ofxhost {

/// Which objects a handle may mean.
enum class HandleKind { Properties, Effect, Parameters, Parameter, Clip, Memory, Interact };

/// The live handles of this process. Any thread. Handles do not point to memory: a plug-in that
/// follows one crashes, as it would with a real host's.
class HandleTable {
public:
    static HandleTable& instance();

    void* add(HandleKind kind, void* object);
    void remove(const void* handle);
    /// Null for a handle that is dead, of another kind or no handle.
    void* find(HandleKind kind, const void* handle) const;

private:
    struct Entry {
        HandleKind kind;
        void* object;
    };

    mutable std::shared_mutex mutex_;
    std::unordered_map<std::uintptr_t, Entry> entries_;
    std::uintptr_t last_ = 0;
};

/// The handle of one object, as long as the object lives.
template <HandleKind kKind, class Handle>
class OwnHandle {
public:
    explicit OwnHandle(void* object) : value_(HandleTable::instance().add(kKind, object)) {}
    ~OwnHandle() { HandleTable::instance().remove(value_); }
    OwnHandle(const OwnHandle&) = delete;
    OwnHandle& operator=(const OwnHandle&) = delete;

    Handle get() const { return static_cast<Handle>(value_); }

private:
    void* value_;
};

/// The object of a handle; null if it has none of this kind.
template <class Object>
Object* objectOf(HandleKind kind, const void* handle) {
    return static_cast<Object*>(HandleTable::instance().find(kind, handle));
}

}  // namespace ruvex::ofxhost
