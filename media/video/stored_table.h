// The list of a video's pictures in a file, so that the video need not be read whole to find them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "files/file_stamp.h"
#include "media/video/picture_table.h"

namespace ruvex::media {

/// The table as a row of bytes, the same on every kind of processor.
std::vector<std::byte> bytesOfTable(const PictureTable& table);

/// The table that bytesOfTable has written. Empty for anything else: all numbers of a table are in
/// ranges in which a VideoIndex can calculate with them.
std::optional<PictureTable> tableOfBytes(std::span<const std::byte> bytes);

/// The contents of a file: the bytes of the table behind their digest, which counts also the clip's
/// stamp and the versions of this format and of the FFmpeg libraries.
std::vector<std::byte> storedTable(const PictureTable& table, const files::FileStamp& clip);

/// The table in `file`. Empty if there is no such file, or it is damaged, of another clip, or of
/// another version.
std::optional<PictureTable> readStoredTable(const std::filesystem::path& file,
                                            const files::FileStamp& clip);

}  // namespace ruvex::media
