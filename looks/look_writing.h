// Writing looks and states as files.

#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "looks/look_library.h"
#include "runtime/effect_session.h"

namespace ruvex::looks {

/// Writes what changesOf gives as a look file, made for this project frame if one is given. Throws
/// files::FileError too.
void saveLook(const runtime::EffectSession& session, const std::filesystem::path& file,
              std::optional<ProjectSize> projectSize = {});

/// Writes each of the looks as a look file, named after it, into `folder`, which is created if
/// missing. Throws files::FileError.
void writeLookFiles(std::span<const LibraryLook> looks, const std::filesystem::path& folder);

/// Writes the stored state of a session's effect. Throws files::FileError and runtime::Error.
void saveState(const runtime::EffectSession& session, const std::filesystem::path& file);

}  // namespace ruvex::looks
