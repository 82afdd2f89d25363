// How pictures are stored, from text. All throw UsageError, naming the option and the text.

#pragma once

#include <filesystem>
#include <string>

#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/pixels/alpha.h"

namespace ruvex::cli {

/// "straight" or "premultiplied".
media::AlphaForm parseAlpha(const std::string& option, const std::string& text);

/// "y4m", "rgba8" or "s214", for `path`, which has to be a stream.
media::FileKind parseStreamFormat(const std::string& option, const std::string& text,
                                  const std::filesystem::path& path);

/// "top", "bottom" or "none".
media::FieldOrder parseFieldOrder(const std::string& option, const std::string& text);

/// "top field first" or "bottom field first"; `order` is not Progressive.
std::string toText(media::FieldOrder order);

}  // namespace ruvex::cli
