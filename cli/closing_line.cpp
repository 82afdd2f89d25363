#include "cli/closing_line.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "cli/amount_text.h"
#include "files/numbered_path.h"
#include "files/words.h"
#include "media/file_kind.h"

namespace ruvex::cli {
namespace {

std::uintmax_t bytesOf(const std::filesystem::path& file) {
    std::error_code missing;
    const std::uintmax_t bytes = std::filesystem::file_size(file, missing);
    return missing ? 0 : bytes;
}

/// Empty for a stream.
std::optional<std::uintmax_t> bytesOfResult(const jobs::RenderPlan& plan) {
    if (media::fileKind(plan.output) == media::FileKind::Stream) return std::nullopt;
    const files::NumberedPath names(plan.output);
    if (!names.isPattern()) return bytesOf(names.plain());
    std::uintmax_t all = 0;
    for (std::int64_t k = plan.frames.first; k <= plan.frames.last; ++k) {
        all += bytesOf(names.file(k));
    }
    return all;
}

std::string nameOfResult(const jobs::RenderPlan& plan) {
    return media::fileKind(plan.output) == media::FileKind::Stream
               ? "standard output"
               : files::printable(plan.output.string());
}

}  // namespace

std::string memoryLine(const media::HeldMemory& held) {
    return "memory for frames: " + std::to_string(held.pictures) +
           (held.pictures == 1 ? " frame, " : " frames, ") + bytesText(held.bytes) + ".";
}

std::string closingLine(const jobs::RenderPlan& plan, std::int64_t frames, double seconds) {
    if (frames == 0) return nameOfResult(plan) + ": nothing is left to render.";
    std::string line = nameOfResult(plan) + ": " + std::to_string(frames) +
                       (frames == 1 ? " frame" : " frames") + " in " + oneDecimal(seconds) + " s";
    if (seconds > 0.0)
        line += ", " + oneDecimal(static_cast<double>(frames) / seconds) + " a second";
    line += "; " + toText(plan.writing.size);
    if (const auto bytes = bytesOfResult(plan)) line += ", " + bytesText(*bytes);
    return line + ".";
}

}  // namespace ruvex::cli
