// The one way in which reading and writing pictures fails.

#pragma once

#include <stdexcept>
#include <string>

namespace ruvex::media {

/// A sentence for the person at the keyboard: what was wrong, with which file, and what to do.
class MediaError : public std::runtime_error {
public:
    explicit MediaError(const std::string& sentence) : std::runtime_error(sentence) {}
};

}  // namespace ruvex::media
