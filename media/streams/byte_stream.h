// Bytes in a row, from or to what cannot be searched: pipes, and files taken as such.

#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ruvex::media {

/// Reads a file descriptor, which stays its owner's.
class InputStream {
public:
    /// `name` is what messages call it.
    InputStream(int descriptor, std::string name) : fd_(descriptor), name_(std::move(name)) {}

    const std::string& name() const { return name_; }

    /// Fills `bytes`; waits for them. How many there were before the end. Throws MediaError if the
    /// system refuses.
    std::size_t read(std::span<std::byte> bytes);

    /// Fills `bytes`, the size of one frame. False at the end of the stream. Throws MediaError if
    /// the stream ends within the frame.
    bool readFrame(std::span<std::byte> bytes);

private:
    int fd_;
    std::string name_;
};

/// Writes to a file descriptor, which stays its owner's.
class OutputStream {
public:
    OutputStream(int descriptor, std::string name) : fd_(descriptor), name_(std::move(name)) {}

    const std::string& name() const { return name_; }

    /// All of it. Throws MediaError, also if nobody reads at the other end.
    void write(std::span<const std::byte> bytes);
    void write(const std::string& text) { write(std::as_bytes(std::span(text))); }

private:
    int fd_;
    std::string name_;
};

}  // namespace ruvex::media
