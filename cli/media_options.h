// How pictures are stored, from text. All throw UsageError, naming the option and the text.

#pragma once

#include <string>

#include "media/alpha.h"

namespace ruvex::cli {

/// "straight" or "premultiplied".
media::AlphaForm parseAlpha(const std::string& option, const std::string& text);

}  // namespace ruvex::cli
