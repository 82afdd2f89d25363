#include "media/video/file_bytes.h"

namespace ruvex::media {

FileBytes::FileBytes(std::istream& stream) : stream_(stream) {
    stream_.seekg(0, std::ios::end);
    const std::streamoff end = stream_.tellg();
    size_ = end > 0 ? static_cast<std::uint64_t>(end) : 0;
}

std::uint8_t FileBytes::byte(std::uint64_t at) {
    if (at >= size_) {
        return 0;
    }
    if (at < begin_ || at - begin_ >= filled_) {
        fill(at);
    }
    return filled_ == 0 ? 0 : static_cast<std::uint8_t>(block_[at - begin_]);
}

std::uint64_t FileBytes::bigEndian(std::uint64_t at, int bytes) {
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) {
        value = value << 8 | byte(at + static_cast<std::uint64_t>(i));
    }
    return value;
}

std::uint64_t FileBytes::littleEndian(std::uint64_t at, int bytes) {
    std::uint64_t value = 0;
    for (int i = bytes - 1; i >= 0; --i) {
        value = value << 8 | byte(at + static_cast<std::uint64_t>(i));
    }
    return value;
}

bool FileBytes::holds(std::uint64_t at, std::string_view text) {
    for (const char letter : text) {
        if (byte(at++) != static_cast<std::uint8_t>(letter)) {
            return false;
        }
    }
    return true;
}

void FileBytes::fill(std::uint64_t at) {
    begin_ = at;
    stream_.clear();
    stream_.seekg(static_cast<std::streamoff>(at));
    stream_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
    filled_ = static_cast<std::uint64_t>(stream_.gcount());
}

}  // namespace ruvex::media
