// Options with a few words to choose from. All throw UsageError, naming the option and the text.

#pragma once

#include <string>

#include "jobs/clip_ends.h"
#include "jobs/result_alpha.h"
#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/pixels/alpha.h"
#include "media/stills/exr_form.h"

namespace ruvex::cli {

/// The help of --rate.
inline constexpr const char* kRateHelp =
    "Frames a second of stills, raw frames and video of variable frame rate: 25, 29.97, "
    "30000/1001; default: 25, for video the slowest rate that keeps every picture";

/// "straight" or "premultiplied".
media::AlphaForm parseAlpha(const std::string& option, const std::string& text);

/// "effect" or "opaque".
jobs::ResultAlpha parseResultAlpha(const std::string& option, const std::string& text);

/// "y4m", "rgba8" or "s214".
media::FileKind parseStreamFormat(const std::string& option, const std::string& text);

/// "top", "bottom" or "none".
media::FieldOrder parseFieldOrder(const std::string& option, const std::string& text);

/// "blank", "hold" or "loop".
jobs::ClipEnds parseEnds(const std::string& option, const std::string& text);

/// A quality from 1 to 100.
int parseQuality(const std::string& option, const std::string& text);

/// "half" or "float".
media::ExrPixels parseExrPixels(const std::string& option, const std::string& text);

/// "none", "rle", "zip1" or "zip16".
media::ExrCompression parseExrCompression(const std::string& option, const std::string& text);

/// "8" or "16".
media::Depth parseDepth(const std::string& option, const std::string& text);

}  // namespace ruvex::cli
