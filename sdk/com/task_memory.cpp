// Memory that a COM function hands to its caller, for systems without these functions.

#include <cstdlib>

#include "sdk/pages/property_page_interface.h"

void* CoTaskMemAlloc(std::size_t bytes) {
    return std::malloc(bytes);
}

void CoTaskMemFree(void* memory) {
    std::free(memory);
}
