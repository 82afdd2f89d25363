// The error of reading and writing pictures.

#pragma once

#include "files/file_error.h"

namespace ruvex::media {

/// An error of a file, as in files/: its message names the file.
using MediaError = files::FileError;

}  // namespace ruvex::media
