// Conversion of exceptions into status codes: no exception may leave an interface function.

#pragma once

#include <new>

#include "sdk/com/com.h"

namespace ruvex {

/// Runs the body of an interface function and returns its status. E_OUTOFMEMORY if it throws
/// std::bad_alloc, E_FAIL for any other exception.
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
