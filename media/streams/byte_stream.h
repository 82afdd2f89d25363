// Reading and writing bytes in sequence, without seeking, as of a pipe.

#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ruvex::media {

/// Reads a file descriptor, which the caller owns and closes.
class InputStream {
public:
    /// `name` is for messages.
    InputStream(int descriptor, std::string name) : fd_(descriptor), name_(std::move(name)) {}

    const std::string& name() const { return name_; }

    /// Blocks until `bytes` is filled or the stream ends. Returns how many bytes were read. Throws
    /// MediaError if reading fails.
    std::size_t read(std::span<std::byte> bytes);

    /// Reads one frame into `bytes`, which has its size. False at the end of the stream. Throws
    /// MediaError if reading fails or the stream ends within the frame.
    bool readFrame(std::span<std::byte> bytes);

private:
    int fd_;
    std::string name_;
};

/// Writes to a file descriptor, which the caller owns and closes.
class OutputStream {
public:
    /// `name` is for messages.
    OutputStream(int descriptor, std::string name) : fd_(descriptor), name_(std::move(name)) {}

    const std::string& name() const { return name_; }

    /// Writes all bytes. Throws MediaError if writing fails, or if the reader of a pipe has ended.
    void write(std::span<const std::byte> bytes);
    void write(const std::string& text) { write(std::as_bytes(std::span(text))); }

private:
    int fd_;
    std::string name_;
};

}  // namespace ruvex::media
