// What the module knows of itself: its handle, and how many things keep it loaded.

#pragma once

#include <atomic>
#include <cstdint>

#include "sdk/com/module_instance.h"

namespace ruvex {

/// The module's handle, stored at load, before any object is made.
extern HINSTANCE moduleInstance;

/// Live class factories, server locks and live objects of the whole module.
extern std::atomic<std::int32_t> objectCount;

/// Keeps the module loaded as long as it lives. A copy counts for itself.
class ModuleUse {
public:
    ModuleUse() { ++objectCount; }
    ModuleUse(const ModuleUse&) : ModuleUse() {}
    ModuleUse& operator=(const ModuleUse&) = default;
    ~ModuleUse() { --objectCount; }
};

}  // namespace ruvex
