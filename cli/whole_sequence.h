// One still of a sequence, where the sequence was probably meant.

#pragma once

#include <optional>
#include <string>

#include "cli/render_options.h"

namespace ruvex::cli {

/// The options with the patterns of sequences as input and output, if the input is a numbered still
/// with one of the next number beside it, and the output is no single still.
std::optional<RenderOptions> wholeSequence(const RenderOptions& options);

/// "s.001.png is one picture of a sequence. To render all of it: COMMAND".
std::string wholeSequenceText(const RenderOptions& options, const std::string& command);

}  // namespace ruvex::cli
