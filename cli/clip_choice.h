// What of a clip is used, from what the clip says and what the person says.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/option_text.h"
#include "media/clip_info.h"
#include "media/file_kind.h"

namespace ruvex::cli {

/// The rate of what does not say its own.
inline constexpr media::Rational kUsualRate{25, 1};

/// Raw frames cannot do without a size, and nothing else takes one; `depth` is the one that the
/// frames are rendered at, if it was named. `format` is what a stream holds, if that
/// was named; a size alone makes it raw. Throws UsageError.
void checkRawSize(const std::filesystem::path& input, std::optional<media::FrameSize> size,
                  std::optional<media::Depth> depth, std::optional<media::FileKind> format = {});

/// For commands that have to know the whole clip before they begin. Throws UsageError for streams.
void checkNoStream(const std::filesystem::path& input);

/// The clip's own rate before the one that was named. A named one that differs is warned of.
media::Rational chooseRate(const std::filesystem::path& input, const media::ClipInfo& clip,
                           std::optional<media::Rational> named,
                           std::vector<std::string>& warnings);

/// The named frames, or all. Throws UsageError for frames outside the clip and for numbers that the
/// effect cannot count to.
FrameRange chooseFrames(const std::filesystem::path& input, const media::ClipInfo& clip,
                        std::optional<FrameRange> named);

}  // namespace ruvex::cli
