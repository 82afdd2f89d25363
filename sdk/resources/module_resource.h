// The bytes of a dialog template in a loaded module, on any system.

#pragma once

#include <cstdint>
#include <span>

#include "sdk/com/module_instance.h"

namespace ruvex {

/// The template, as long as the module is loaded; empty if the module has no such dialog.
std::span<const unsigned char> moduleDialog(HINSTANCE module, std::uint16_t number);

}  // namespace ruvex
