// JSON text that people write: strict, and with messages that say what is wrong.

#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace ruvex::looks {

/// Keeps the members of an object in the order of the text.
using Json = nlohmann::ordered_json;

/// JSON text that is malformed or does not hold what it should. The sentence can be printed on any
/// terminal, whatever the text contains.
class JsonError : public std::runtime_error {
public:
    explicit JsonError(const std::string& sentence);
};

/// Throws JsonError for malformed text (with line and column), for two members of one name in an
/// object, and for brackets that are nested more than 16 deep.
Json parseJson(const std::string& text);

/// The text of a file with JSON. Throws files::FileError if it cannot be read or has more than
/// 16 MB: room for every parameter with thousands of keys, but not for a video named by mistake.
std::string readJsonText(const std::filesystem::path& file);

/// Whether a string can stand in JSON as it is: valid UTF-8.
bool isUtf8(const std::string& text);

}  // namespace ruvex::looks
