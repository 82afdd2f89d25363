// What the stand-in host throws.

#pragma once

#include <stdexcept>
#include <string>

#include "sdk/com/com.h"

namespace ruvex::runtime {

/// A sentence that says what was wrong, with what, and, where there is something, what to do.
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A call into the module failed. The sentence ends in the status code in hexadecimal.
class StatusError : public Error {
public:
    StatusError(const std::string& what, HRESULT status);

    HRESULT status() const { return status_; }

private:
    HRESULT status_;
};

/// Throws a StatusError for a failure. `what` says what could not be done: "cannot render frame 7".
void require(HRESULT status, const std::string& what);

}  // namespace ruvex::runtime
