// The values of options, from text. All throw UsageError, naming the option and the text.

#pragma once

#include <string>
#include <string_view>

#include "jobs/frame_range.h"
#include "media/frame.h"
#include "media/rational.h"

namespace ruvex::cli {

/// "720x576", each side from 1 up.
media::FrameSize parseSize(const std::string& option, std::string_view text);
/// "A-B" or one number, from 0 up, A not above B, both below jobs::kFrameNumberEnd.
jobs::FrameRange parseFrames(const std::string& option, std::string_view text);
/// "X,Y,W,H"; X and Y from 0 up, W and H from 1 up.
jobs::Region parseRegion(const std::string& option, std::string_view text);
/// "25", "29.97", "30000/1001": above 0.
media::Rational parseFraction(const std::string& option, std::string_view text);
/// A decimal number from 0 to 1.
double parsePart(const std::string& option, std::string_view text);
/// A finite number of seconds, which may be negative.
double parseSeconds(const std::string& option, std::string_view text);
/// A whole number from `low` to `high`.
int parseWhole(const std::string& option, std::string_view text, int low, int high);

/// Checks the name of a JSON file that is going to be written; `kind` is "look" or "job". An empty
/// name is allowed. The ending keeps a misplaced name from replacing a clip.
void checkJsonName(const std::string& option, const std::string& file, const std::string& kind);

}  // namespace ruvex::cli
