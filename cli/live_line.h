// A line on a terminal that changes.

#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace ruvex::cli {

/// The front of the text, at most `columns` letters of it.
std::string_view cutToColumns(std::string_view text, std::size_t columns);

/// Writes a text over the one before it. A text that is wider than the terminal is cut: it would
/// begin another line, which nothing writes over.
class LiveLine {
public:
    /// `stream` is not owned, and outlives this.
    explicit LiveLine(std::FILE* stream);

    /// Whether the stream is a terminal. To another one nothing should be written.
    bool onTerminal() const { return terminal_; }

    void show(std::string_view text);

    /// Ends the line, so that what follows stands on a line of its own. Does nothing without a
    /// text.
    void end();

private:
    std::FILE* stream_;
    bool terminal_;
    std::size_t width_ = 0;  ///< Letters that were shown.
};

}  // namespace ruvex::cli
