// The errors of reading and writing pictures.

#pragma once

#include <exception>

#include "files/file_error.h"

namespace ruvex::media {

/// An error of a file, as in files/: its message names the file.
using MediaError = files::FileError;

/// Reading or writing was given up because a stop was requested. Not an error of the file.
class Stopped : public std::exception {
public:
    const char* what() const noexcept override { return "stopped"; }
};

}  // namespace ruvex::media
