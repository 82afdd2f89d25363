// The members of a look file that describe the look; all other members are parameters.

#pragma once

#include <functional>
#include <string>

#include "looks/json_document.h"
#include "looks/look.h"

namespace ruvex::looks {

/// Takes "name", "description", "author" and "projectSize" out of an object and stores their values
/// in `look`. Throws JsonError for a value of another type or form, a text that is not one
/// printable line, and a project frame out of range. Leaves JSON that is not an object as it is.
void takeLookMembers(Json& document, Look& look);

/// Calls `add` with the name and the JSON text of each of these members that the look has.
void forEachLookMember(const Look& look,
                       const std::function<void(const char* name, const std::string& json)>& add);

}  // namespace ruvex::looks
