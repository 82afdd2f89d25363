// What the fuzzer's targets share. A target is one source with a LLVMFuzzerTestOneInput:
// scripts/fuzz lets clang's fuzzer call it, and in the ordinary builds corpus_main.cpp calls it for
// each file of its corpus. A target ends the program when a parser breaks a promise.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace ruvex::fuzz {

/// Ends the program with `promise` if it was not kept.
void demand(bool kept, std::string_view promise);

/// Demands a sentence that a terminal can be given: not empty, in UTF-8, without control
/// characters.
void demandPrintable(std::string_view sentence);

/// Demands a sentence that begins with `name` and goes on after it.
void demandNamed(std::string_view sentence, std::string_view name);

/// Whether both are the same to the bit.
bool sameBits(double a, double b);

/// What `parse` gives; nothing where it refuses with `Refusal`, of whose sentence `look` takes
/// care. Any other exception ends the program.
template <class Refusal, class Parse, class Look>
auto unlessRefused(Parse parse, Look look) -> std::optional<decltype(parse())> {
    try {
        return parse();
    } catch (const Refusal& refusal) {
        look(std::string_view(refusal.what()));
        return std::nullopt;
    }
}

/// The input as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The input as one word of a command line: without the zero bytes that no word can hold.
std::string wordOf(std::string_view text);

/// The input as words of a command line: one a line.
std::vector<std::string> wordsOf(std::string_view text);

/// A file that is in memory alone.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// Open for reading, at its beginning.
    int descriptor() const { return descriptor_; }
    /// A name under which this process can open it.
    std::string path() const;

private:
    int descriptor_;
};

}  // namespace ruvex::fuzz
