// Messages on standard error, each of them once in a process.

#pragma once

#include <string>

namespace ruvex::adapters {

/// Prints "V_Ruvex: " and the sentence as one line, unless that sentence was printed before. Hosts
/// render each frame, and several instances may have the same problem. Any thread; after a thousand
/// different sentences nothing more is printed.
void printOnce(const std::string& sentence);

}  // namespace ruvex::adapters
