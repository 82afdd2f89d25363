// Applying a look to a session, and reading it back.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "looks/look.h"
#include "runtime/effect_session.h"

namespace ruvex::looks {

/// Makes the changes in their order; parameters that are not among them keep their state. Throws
/// runtime::Error.
void applyChanges(runtime::EffectSession& session, std::span<const ParameterChange> changes);

/// Every parameter of the table as the session has it: its keys, or its value. Throws
/// runtime::Error.
std::vector<ParameterChange> changesOf(const runtime::EffectSession& session);

/// Writes what changesOf gives as a look file, made for this project frame if one is given. Throws
/// files::FileError too.
void saveLook(const runtime::EffectSession& session, const std::filesystem::path& file,
              std::optional<ProjectSize> projectSize = {});

}  // namespace ruvex::looks
