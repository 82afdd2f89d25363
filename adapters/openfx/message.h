// Messages to the user.

#pragma once

#include <string>

#include "adapters/openfx/host.h"

namespace ruvex::openfx {

/// Shows a warning through the host, or prints it if the host shows no messages. Each sentence is
/// shown once in a process, since hosts render each frame. Never throws. `effect` may be null.
void warn(const Host& host, OfxImageEffectHandle effect, const std::string& sentence) noexcept;

}  // namespace ruvex::openfx
