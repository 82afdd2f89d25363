// Forms of alpha in the host's words.

#pragma once

#include "adapters/common/picture_effect.h"
#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

/// The form of alpha in a property of an image or a clip; `fallback` if there is none.
adapters::HostAlpha alphaOf(const Properties& properties, adapters::HostAlpha fallback);

/// The form of alpha that the plug-in announces for the output.
adapters::HostAlpha announcedAlpha(adapters::HostAlpha source, adapters::ResultAlpha result);

/// The text for a form of alpha.
const char* alphaText(adapters::HostAlpha alpha);

}  // namespace ruvex::openfx
