// How many references an object has.

#pragma once

#include "sdk/com/com.h"

namespace ruvex::test {

/// The references to the object, the caller's included.
inline ULONG countOf(IUnknown& object) {
    object.AddRef();
    return object.Release();
}

}  // namespace ruvex::test
