// Files that are not needed any more.

#pragma once

#include "farm/farm.h"

namespace ruvex::farm {

/// Removes what killed tasks have left of the results and chunks of a clip. Files that
/// a task of this machine still writes are locked and stay; where the disk has no locks between
/// machines, this is for when no task of the clip runs.
void removeLeftovers(const Farm& farm, std::size_t clip);

/// The same of the job's records, for when no task runs.
void removeRecordLeftovers(const Farm& farm);

/// Removes the files of the chunks of a clip that has been joined, unless the job keeps them.
void removeChunks(const Farm& farm, std::size_t clip);

}  // namespace ruvex::farm
