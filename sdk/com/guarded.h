// The border over which nothing is thrown.

#pragma once

#include <new>

#include "sdk/com/com.h"

namespace ruvex {

/// Runs what stands behind an operation of an interface: its status, E_OUTOFMEMORY when memory ran
/// out, E_FAIL for anything else that was thrown.
template <class Operation>
HRESULT guarded(Operation operation) noexcept {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace ruvex
