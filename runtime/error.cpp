#include "runtime/error.h"

#include <cstdint>
#include <cstdio>

namespace ruvex::runtime {

namespace {

std::string inHexadecimal(HRESULT status) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(status));
    return text;
}

}  // namespace

StatusError::StatusError(const std::string& what, HRESULT status)
    : Error(what + " (status " + inHexadecimal(status) + ")"), status_(status) {}

void require(HRESULT status, std::string_view what) {
    if (FAILED(status)) throw StatusError(std::string(what), status);
}

}  // namespace ruvex::runtime
