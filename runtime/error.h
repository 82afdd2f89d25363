// The exceptions of the stand-in host.

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "sdk/com/guarded.h"

namespace ruvex::runtime {

/// what() is a sentence for the user: what is wrong, with which input and, where possible, what to
/// do about it.
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// There was not enough memory.
class OutOfMemory : public Error {
public:
    using Error::Error;
};

/// A failed call into the module. The sentence ends with the status code in hexadecimal.
class StatusError : public Error {
public:
    StatusError(const std::string& what, HRESULT status);

    HRESULT status() const { return status_; }

private:
    HRESULT status_;
};

/// Throws a StatusError for a failure. `what` names the operation that failed: "cannot render frame
/// 7".
void require(HRESULT status, std::string_view what);

/// As ruvex::guarded, and a StatusError gives its own status.
template <class Operation>
HRESULT guardedStatus(Operation operation) noexcept {
    return guarded([&]() -> HRESULT {
        try {
            return operation();
        } catch (const StatusError& error) {
            return error.status();
        }
    });
}

}  // namespace ruvex::runtime
