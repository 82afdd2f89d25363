// What the scheduler runs for each chunk and each join.

#pragma once

#include <string>
#include <vector>

#include "farm/farm.h"

namespace ruvex::farm {

/// The words of the command that renders a chunk or joins the chunks of a clip: {"task", FOLDER,
/// "17", "--id", ...}, to be put after "ruvex farm".
std::vector<std::string> taskWords(const Farm& farm, std::int64_t chunk);
std::vector<std::string> joinWords(const Farm& farm, std::size_t clip);

/// A shell script that takes "task" or "join", and the number of the array's element 0. It runs
/// this very program.
std::string batchScript(const Layout& layout, const std::string& id);

/// The word in quotation marks that a shell takes off again.
std::string scriptQuoted(const std::string& word);

}  // namespace ruvex::farm
