// Parameters in a JSON file: one object, labels and values. docs/parameter-files.md describes it.

#pragma once

#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/parameter_change.h"

namespace ruvex::cli {

/// A parameter file that is not what it should be: a sentence that begins with its name.
class ParameterFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the text asks for, in its order. `name` is the file's, for messages. Throws
/// ParameterFileError for text that is no JSON, with line and column; for a name that is unknown or
/// comes twice; for a value that the parameter does not take. What the render will only hold to its
/// range goes to `warnings`.
std::vector<ParameterChange> parseParameterFile(const std::string& name, const std::string& text,
                                                std::vector<std::string>& warnings);

/// The same of a file, or of a pipe up to its end. Throws media::MediaError where it cannot be read
/// and where it has more than 16 MB.
std::vector<ParameterChange> readParameterFile(const std::filesystem::path& file,
                                               std::vector<std::string>& warnings);

/// Text from which parseParameterFile reads the same changes, to the bit; one line a parameter.
std::string parameterFileText(std::span<const ParameterChange> changes);

}  // namespace ruvex::cli
