// Messages on standard error, each of them once in a process.

#pragma once

#include <string>

namespace ruvex::adapters {

/// Whether the process has not asked for this sentence before. Hosts render each frame, and several
/// instances may have the same problem. Any thread; false after a thousand different sentences.
bool isFirstTime(const std::string& sentence);

/// Prints "V_Ruvex: " and the sentence as one line.
void printSentence(const std::string& sentence);

/// Prints the sentence if it is its first time.
void printOnce(const std::string& sentence);
/// The same without throwing: there may be no memory for it.
void reportOnce(const char* sentence) noexcept;

}  // namespace ruvex::adapters
