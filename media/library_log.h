// What the FFmpeg libraries say of themselves: kept off the terminal, and quoted where it helps.

#pragma once

#include <string>

namespace ruvex::media {

/// Keeps the libraries from printing, for the rest of the process. Cheap to call again.
void quietLibraries();

/// The first error line since the last call, or nothing, without its line end. Any thread's.
std::string takeLibraryError();

/// An error code of the libraries in words.
std::string libraryReason(int code);

}  // namespace ruvex::media
