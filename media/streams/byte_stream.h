// Reading and writing bytes in sequence, without seeking, as of a pipe.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stop_token>
#include <string>

namespace ruvex::media {

/// Reads a file descriptor, which the caller owns and closes. A requested stop ends the wait for
/// bytes that do not come: any method may throw Stopped.
class InputStream {
public:
    /// `name` is for messages.
    InputStream(int descriptor, std::string name, std::stop_token stop = {})
        : fd_(descriptor), name_(std::move(name)), stop_(std::move(stop)) {}

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
    std::stop_token stop_;
};

/// Writes to a file descriptor, which the caller owns and closes. A requested stop ends the wait
/// for a reader that takes nothing: `write` may throw Stopped.
class OutputStream {
public:
    /// `name` is for messages.
    OutputStream(int descriptor, std::string name, std::stop_token stop = {});
    ~OutputStream();
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    const std::string& name() const { return name_; }

    /// Writes all bytes. Throws MediaError if writing fails, or if the reader of a pipe has ended.
    void write(std::span<const std::byte> bytes);
    void write(const std::string& text) { write(std::as_bytes(std::span(text))); }

private:
    /// Returns how many bytes were written.
    std::size_t writeSome(std::span<const std::byte> bytes);

    int fd_;
    int pipe_ = -1;  ///< A pipe, opened so that a write does not block; owned.
    std::string name_;
    std::stop_token stop_;
    std::size_t mostAtOnce_ = SIZE_MAX;
};

}  // namespace ruvex::media
