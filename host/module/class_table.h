// The classes that the module serves.

#pragma once

#include <cstdint>
#include <span>

#include "sdk/com/com.h"

namespace ruvex {

struct ServedClass {
    GUID classId;
    UINT stringId;  ///< number of the class's description in the string table
    /// Creates the class's factory with one reference; returns null if memory ran out. The pointer
    /// is null for a class that is registered but of which no objects can be created.
    IClassFactory* (*makeFactory)();
};

/// All classes, in the order in which they are registered and looked up.
std::span<const ServedClass> servedClasses();

/// The object families under which the effect is registered, in this order.
std::span<const GUID> servedFamilies();

}  // namespace ruvex
