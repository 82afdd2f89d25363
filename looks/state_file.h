// State files: the stored state of an effect's properties in JSON, bit for bit.

#pragma once

#include <filesystem>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "runtime/effect_session.h"
#include "runtime/property_state.h"

namespace ruvex::looks {

/// The version that is written. Files of this one and of all earlier ones are read.
inline constexpr int kStateFileVersion = 1;

/// A state file with wrong contents: a sentence that begins with the file's name.
class StateFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The definition of a property; null for an unknown identifier.
using FindDefinition = std::function<const CDSParamDef*(const GUID& id)>;

/// One line with the version, then one line a property: its identifier, the plain value under the
/// name of its type, and the key frames if there are any.
///
///     {
///       "ruvexState": 1,
///       "A41E7F12-37AB-48B5-99C9-C4B83402C0FC": {"integer": 7},
///       "A41E7F13-37AB-48B5-99C9-C4B83402C0FC":
///           {"real": 0.5, "keys": [{"seconds": 0.0, "value": 1.0, "mode": "hold"}]}
///     }
///
/// Reals have to be finite.
std::string stateFileText(std::span<const runtime::PropertyState> states);

/// The states in the text of a state file, in its order, with the bits that were written; `name` is
/// the file's, for messages. Throws StateFileError for a later version, a property that is unknown
/// or not part of the stored state (runtime::isStored), one that occurs twice, a value of another
/// type than the property's, key frames of one that can't be animated, and two key frames at the
/// same time.
std::vector<runtime::PropertyState> parseStateFile(const std::string& name, const std::string& text,
                                                   const FindDefinition& find);

/// The states in a file for a session's effect. Throws StateFileError, and files::FileError if the
/// file cannot be read or has more than 16 MB.
std::vector<runtime::PropertyState> readStateFile(const runtime::EffectSession& session,
                                                  const std::filesystem::path& file);

}  // namespace ruvex::looks
