// A failed call of the host, as an exception; a status leaves the plug-in.

#pragma once

#include <stdexcept>
#include <string>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::openfx {

/// The sentence is for the user; the status is that of the action.
class Failure : public std::runtime_error {
public:
    Failure(OfxStatus status, const std::string& sentence)
        : std::runtime_error(sentence), status_(status) {}

    OfxStatus status() const { return status_; }

private:
    OfxStatus status_;
};

}  // namespace ruvex::openfx
