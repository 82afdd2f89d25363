// Several clips with the same options, and results in a folder.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/render_options.h"

namespace ruvex::cli {

/// The options of each clip: its own input and its own output. Where the output is a folder (a name
/// that ends in '/', or a folder that exists), a result has the name of its input, and an extension
/// that can be written: the input's own, else one that holds the codec. Throws UsageError for
/// several inputs without a folder, inputs that do not exist or cannot be one of several, and
/// results of one name.
std::vector<RenderOptions> clipsOf(const RenderOptions& options);

/// Makes the folder that the output names with a '/' at its end, unless it exists or the options
/// write no result. Throws UsageError if it cannot be made.
void makeResultFolder(const RenderOptions& options);

/// Renders one clip; the exit status. `label` is put before the line of progress.
using RenderOne = std::function<int(const RenderOptions& one, const std::string& label)>;

/// Calls `render` for each clip. A clip that fails is reported and does not end the others; a stop
/// does. Makes the output folder, unless the render is a dry run. Returns the exit status: of one
/// clip its own, of several kFailed if any failed. Throws as clipsOf does, and as `render` does for
/// one clip.
int renderClips(const RenderOptions& options, const RenderOne& render);

}  // namespace ruvex::cli
