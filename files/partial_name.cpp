#include "files/partial_name.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string_view>
#include <unistd.h>

#include "files/whole_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPartial = ".partial-";
/// The dot in front, kPartial, two whole numbers and the dash between them.
constexpr std::size_t kMostAdded =
    2 + kPartial.size() + 2 * (std::numeric_limits<unsigned>::digits10 + 1);
constexpr char kCut = '~';
constexpr std::size_t kDigitsOfHash = 16;

/// Bytes that a name may have in this folder.
std::size_t longestName(const fs::path& folder) {
    constexpr std::size_t kUsual = 255;
    const long most = pathconf(folder.c_str(), _PC_NAME_MAX);
    return most > 0 ? static_cast<std::size_t>(most) : kUsual;
}

/// FNV-1a, 64 bits, in hexadecimal digits.
std::string hashText(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char letter : text) {
        hash = (hash ^ static_cast<std::uint8_t>(letter)) * 0x100000001b3;
    }
    std::array<char, kDigitsOfHash + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
    return digits.data();
}

/// The front of the text, at most `most` bytes, without a part of a letter at its end.
std::string_view frontOf(std::string_view text, std::size_t most) {
    const auto continues = [](char byte) {
        return (static_cast<std::uint8_t>(byte) & 0xC0) == 0x80;
    };
    while (most > 0 && most < text.size() && continues(text[most])) --most;
    return text.substr(0, most);
}

/// The name, cut if it would not leave room for what is added to it.
std::string shortened(const std::string& name, std::size_t longest) {
    if (name.size() + kMostAdded <= longest) return name;
    const std::size_t kept = longest - std::min(longest, kMostAdded + 1 + kDigitsOfHash);
    return std::string(frontOf(name, kept)) + kCut + hashText(name);
}

/// What is between the dot and kPartial; empty if the name is not a temporary file's.
std::string keptName(const std::string& name) {
    const auto end = name.rfind(kPartial);
    const bool partial = name.starts_with('.') && end != std::string::npos && end > 0;
    return partial ? name.substr(1, end - 1) : std::string();
}

/// Whether a cut name can be that of a file of the sequence: one begins as the other does.
bool canBeCutFrom(const std::string& kept, const NumberedPath& sequence) {
    if (kept.size() <= 1 + kDigitsOfHash) return false;
    const std::string front = kept.substr(0, kept.size() - 1 - kDigitsOfHash);
    const std::string first = sequence.file(0).filename().string();
    const std::string before = sequence.beforeNumber();
    return kept[front.size()] == kCut && first.size() > front.size() &&
           (front.starts_with(before) || before.starts_with(front));
}

}  // namespace

fs::path partialName(const fs::path& final) {
    static std::atomic<unsigned> count = 0;
    const std::size_t longest = longestName(folderOf(final));
    std::string name = ".";
    name += shortened(final.filename().string(), longest);
    name.append(kPartial).append(std::to_string(getpid())).append("-");
    return final.parent_path() / (name + std::to_string(count++));
}

bool isPartialOf(const std::string& name, const fs::path& final) {
    const std::string kept = keptName(name);
    return !kept.empty() &&
           kept == shortened(final.filename().string(), longestName(folderOf(final)));
}

bool isPartialOf(const std::string& name, const NumberedPath& sequence) {
    const std::string kept = keptName(name);
    return !kept.empty() && (sequence.fits(kept) || canBeCutFrom(kept, sequence));
}

}  // namespace ruvex::files
