// The module's handle and its count of live objects, while which it must stay loaded.

#pragma once

#include <atomic>
#include <cstdint>

#include "sdk/com/module_instance.h"

namespace ruvex {

/// The module's handle. DllMain sets it at load, before any object is created.
extern HINSTANCE moduleInstance;

/// The number of live objects, live class factories and server locks of the module.
extern std::atomic<std::int32_t> objectCount;

/// Keeps the module loaded during its lifetime, by counting in objectCount.
class ModuleUse {
public:
    ModuleUse() { ++objectCount; }
    ModuleUse(const ModuleUse&) : ModuleUse() {}
    ModuleUse& operator=(const ModuleUse&) = default;
    ~ModuleUse() { --objectCount; }
};

}  // namespace ruvex
