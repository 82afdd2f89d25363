// What all threads of an attack work on: one hostile host with one plug-in and its instances.

#pragma once

#include <array>
#include <memory>
#include <shared_mutex>
#include <string>

#include "tests/openfx/attack/random_source.h"
#include "tests/openfx/host/binary.h"
#include "tests/openfx/host/instance.h"
#include "tests/openfx/host/interact.h"

namespace ruvex::ofxhost::attack {

/// How hostile the host is to the calls of one thread.
struct Hostility {
    RandomSource* random = nullptr;
    int failing = 0;    ///< One call in this number fails; 0 for none.
    int tampering = 0;  ///< One set of properties in this number is tampered with; 0 for none.
};

/// That of the calling thread.
Hostility& hostility();

/// One instance, or none. Calls of an instance share the lock; making, editing and destroying take
/// it alone.
struct Slot {
    std::shared_mutex mutex;
    std::unique_ptr<Instance> instance;
    std::unique_ptr<Interact> interact;

    void clear() {
        interact.reset();
        instance.reset();
    }
};

struct Target {
    /// Loads the plug-in of a file and describes it.
    explicit Target(const std::string& file);

    /// Whether the host noticed one of the faults that no hostile host excuses.
    bool faulty() const;

    static constexpr int kSlots = 6;

    Binary binary;
    Host host;
    /// Taken alone by what describes or unloads.
    std::shared_mutex mutex;
    PlugIn plugIn;
    std::array<Slot, kSlots> slots;
};

}  // namespace ruvex::ofxhost::attack
