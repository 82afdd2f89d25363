// The error of reading and writing pictures.

#pragma once

#include "files/file_error.h"

namespace ruvex::media {

/// Pictures come from files and go into files: whatever fails here is an error of a file.
using MediaError = files::FileError;

}  // namespace ruvex::media
