// Look files: parameters in JSON, one object of labels and values, which may describe the look too.
// docs/parameter-files.md explains them.

#pragma once

#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "looks/json_document.h"
#include "looks/look.h"
#include "looks/parameter_change.h"

namespace ruvex::looks {

/// A look file with wrong contents: a sentence that begins with the file's name.
class LookFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The changes that an object of labels and values asks for, in its order. Throws JsonError for an
/// unknown label, a label that occurs twice, and a value that the parameter does not take. Values
/// that the render will clamp are reported in `warnings`.
std::vector<ParameterChange> changesFromJson(const Json& document,
                                             std::vector<std::string>& warnings);

/// The look in the text of a look file; `name` is the file's, for messages. Throws LookFileError.
Look parseLookFile(const std::string& name, const std::string& text,
                   std::vector<std::string>& warnings);

/// The same for a file, or a pipe up to its end. Throws LookFileError, and files::FileError if it
/// cannot be read or has more than 16 MB.
Look readLookFile(const std::filesystem::path& file, std::vector<std::string>& warnings);

/// A JSON object from which changesFromJson reads the same changes, to the bit; one line a
/// parameter, each line after the first indented by `indent` spaces. No line end at its end.
std::string lookText(std::span<const ParameterChange> changes, int indent);

/// The text of a look file from which parseLookFile reads the same look, to the bit. Its texts have
/// to be such as parseLookFile takes.
std::string lookFileText(const Look& look);

}  // namespace ruvex::looks
