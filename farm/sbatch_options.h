// Options that the user hands on to sbatch as they are.

#pragma once

#include <string>
#include <vector>

namespace ruvex::farm {

/// What is wrong with the words, in one sentence: an option that would change what the farm itself
/// asks for, or a word that sbatch would take for its script. Empty if they can be handed on.
std::string faultIn(const std::vector<std::string>& words);

/// The words of --dependency (-d), which are meant for the tasks: a join waits for these.
std::vector<std::string> dependencyIn(const std::vector<std::string>& words);

/// The words without those of --dependency.
std::vector<std::string> withoutDependency(const std::vector<std::string>& words);

}  // namespace ruvex::farm
