// The classes that the module serves.

#pragma once

#include <cstdint>
#include <span>

#include "sdk/com/com.h"

namespace ruvex {

struct ServedClass {
    GUID classId;
    UINT stringId;  ///< the string that describes the class
    /// Makes the class's factory, with one reference; null when memory ran out. Itself null for a
    /// class that is registered, so that the host knows its place, but not to be had.
    IClassFactory* (*makeFactory)();
};

/// In the order in which they are registered and compared.
std::span<const ServedClass> servedClasses();

/// The object families that the effect is registered under, in that order.
std::span<const GUID> servedFamilies();

}  // namespace ruvex
