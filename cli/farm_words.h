// What the commands of `ruvex farm` say of chunks and joins.

#pragma once

#include <cstdint>
#include <string>

#include "farm/farm_job.h"
#include "farm/status.h"
#include "farm/submitting.h"

namespace ruvex::cli {

/// "1 chunk", "3 chunks"; "join" likewise.
std::string countText(std::int64_t count, const std::string& noun);

/// "1 chunk of 50 frames", "5 chunks of 2 frames" (the last of a clip may have fewer).
std::string chunksText(const farm::FarmJob& job);

/// "3 chunks and 1 join submitted, 4 chunks done before, 2 chunks in the queue".
std::string resumeText(const farm::Submission& submission);

/// "250 of 1000 frames, 10 of 40 chunks; 2 running, 28 waiting; 25.0 frames a second, 30 s left,
/// then the join".
std::string statusLine(const farm::FarmStatus& status);

}  // namespace ruvex::cli
