// What is wrong with a farm job.

#pragma once

#include <stdexcept>
#include <string>

namespace ruvex::farm {

/// One sentence for the user: what went wrong, on which machine or with which file, and what to do
/// about it.
class FarmError : public std::runtime_error {
public:
    explicit FarmError(const std::string& sentence) : std::runtime_error(sentence) {}
};

}  // namespace ruvex::farm
