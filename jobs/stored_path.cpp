#include "jobs/stored_path.h"

#include <string>
#include <string_view>

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;
using looks::Json;
using looks::JsonError;

constexpr const char* kPercentEncoded = "percentEncoded";
constexpr const char* kStream = "-";

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool isPlain(char c) {
    constexpr std::string_view kMarks = "-._~/ ";
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           kMarks.find(c) != std::string_view::npos;
}

std::string percentEncoded(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (isPlain(c)) {
            text += c;
        } else {
            text.append({'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]});
        }
    }
    return text;
}

/// The value of a hexadecimal digit in upper case.
std::size_t digitValue(const std::string& text, std::size_t at) {
    const std::size_t value = at < text.size() ? kHexDigits.find(text[at]) : std::string::npos;
    if (value == std::string::npos) {
        throw JsonError("'" + text + "' is not percent-encoded: write a byte as in %E9.");
    }
    return value;
}

std::string percentDecoded(const std::string& text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            bytes += text[at];
            continue;
        }
        bytes += static_cast<char>(digitValue(text, at + 1) * 16 + digitValue(text, at + 2));
        at += 2;
    }
    return bytes;
}

/// The folder of the path is resolved first: ".." cannot be cancelled against a symbolic link.
fs::path relativeTo(const fs::path& folder, const fs::path& path) {
    std::error_code error;
    const fs::path parent = fs::weakly_canonical(fs::absolute(path, error).parent_path(), error);
    const fs::path base = fs::weakly_canonical(fs::absolute(folder, error), error);
    const fs::path relative = parent.lexically_relative(base);
    if (relative.empty()) return fs::absolute(path, error);
    const fs::path whole = relative == "." ? path.filename() : relative / path.filename();
    return whole == kStream ? fs::path(".") / whole : whole;
}

std::string bytesOf(const Json& stored) {
    if (stored.is_string()) return stored.get<std::string>();
    if (stored.is_object() && stored.size() == 1 && stored.contains(kPercentEncoded) &&
        stored[kPercentEncoded].is_string()) {
        return percentDecoded(stored[kPercentEncoded].get<std::string>());
    }
    throw JsonError("a file name is a string, not " + stored.dump() + ".");
}

}  // namespace

Json storedPath(const fs::path& path, const fs::path& folder) {
    const bool stays = folder.empty() || path.empty() || path == kStream || path.is_absolute();
    const std::string bytes = (stays ? path : relativeTo(folder, path)).string();
    if (looks::isUtf8(bytes)) return bytes;
    Json stored = Json::object();
    stored[kPercentEncoded] = percentEncoded(bytes);
    return stored;
}

fs::path pathFromStored(const Json& stored, const fs::path& folder) {
    const fs::path path = bytesOf(stored);
    if (path.empty()) throw JsonError("the file name is empty.");
    if (path.string().find('\0') != std::string::npos) {
        throw JsonError("the file name contains a zero byte.");
    }
    return path == kStream || folder.empty() ? path : folder / path;
}

}  // namespace ruvex::jobs
