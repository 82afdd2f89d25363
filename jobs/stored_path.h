// Paths in job files.

#pragma once

#include <filesystem>

#include "looks/json_document.h"

namespace ruvex::jobs {

/// A path as JSON: a string; where its bytes are not UTF-8, an object
/// {"percentEncoded": "caf%E9.mp4"}. A relative path is written relative to `folder`, the job
/// file's, unless `folder` is empty. "-", which stands for a standard stream, stays.
looks::Json storedPath(const std::filesystem::path& path, const std::filesystem::path& folder);

/// The path that storedPath has written: relative ones are appended to `folder`. Throws
/// looks::JsonError for anything else.
std::filesystem::path pathFromStored(const looks::Json& stored,
                                     const std::filesystem::path& folder);

}  // namespace ruvex::jobs
