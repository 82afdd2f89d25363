// `ruvex params`: the table of parameters.

#pragma once

namespace ruvex::cli {

/// Prints one line a parameter, or a JSON array of objects; the exit status.
int runParams(bool json);

}  // namespace ruvex::cli
