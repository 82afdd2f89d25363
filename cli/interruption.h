// Ctrl-C and its like, as a wish that the render asks for.

#pragma once

namespace ruvex::cli {

/// From now on SIGINT, SIGTERM and SIGHUP do not end the program; they are remembered. Nor does a
/// file that exceeds the limit on sizes: writing it fails.
void catchStopSignals();

/// Whether one has come. Any thread; cheap enough to ask once a row.
bool stopWished();

}  // namespace ruvex::cli
