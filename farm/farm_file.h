// Farm jobs as JSON.

#pragma once

#include <filesystem>
#include <string>

#include "farm/farm_job.h"

namespace ruvex::farm {

/// The version that is written, and the only one that is read: a folder belongs to one version of
/// the program.
inline constexpr int kFarmVersion = 1;

std::string farmText(const FarmJob& job);

/// Reads what farmText has written. `name` is the file's, for messages. Throws FarmError for
/// anything else.
FarmJob parseFarm(const std::string& name, const std::string& text);

}  // namespace ruvex::farm
