#include "cli/live_line.h"

#include <limits>
#include <sys/ioctl.h>
#include <unistd.h>

namespace ruvex::cli {
namespace {

/// Whether the byte continues a letter of UTF-8.
bool continuesLetter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t lettersOf(std::string_view text) {
    std::size_t letters = 0;
    for (const char byte : text) letters += continuesLetter(byte) ? 0 : 1;
    return letters;
}

/// Letters that fit beside the cursor. The terminal is asked each time: its width may change.
std::size_t roomOf(std::FILE* stream) {
    winsize size{};
    if (ioctl(fileno(stream), TIOCGWINSZ, &size) != 0 || size.ws_col < 2) {
        return std::numeric_limits<std::size_t>::max();
    }
    return size.ws_col - 1u;
}

}  // namespace

std::string_view cutToColumns(std::string_view text, std::size_t columns) {
    std::size_t letters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!continuesLetter(text[i]) && ++letters > columns) return text.substr(0, i);
    }
    return text;
}

LiveLine::LiveLine(std::FILE* stream) : stream_(stream), terminal_(isatty(fileno(stream)) != 0) {}

void LiveLine::show(std::string_view text) {
    const std::size_t room = roomOf(stream_);
    const std::string_view shown = cutToColumns(text, room);
    const std::size_t letters = lettersOf(shown);
    // Spaces go over what is left of a longer text.
    const std::size_t before = width_ < room ? width_ : room;
    const std::string spaces(before > letters ? before - letters : 0, ' ');
    std::fprintf(stream_, "\r%.*s%s", static_cast<int>(shown.size()), shown.data(), spaces.c_str());
    std::fflush(stream_);
    width_ = letters;
}

void LiveLine::end() {
    if (width_ == 0) return;
    std::fputc('\n', stream_);
    std::fflush(stream_);
    width_ = 0;
}

}  // namespace ruvex::cli
