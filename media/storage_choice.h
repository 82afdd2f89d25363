// What a user may choose about how a result is stored, and what does not go together.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "media/frame_writer.h"

namespace ruvex::media {

struct VideoCodec;

/// Empty fields leave the choice to the kind of the file.
struct StorageChoice {
    std::optional<std::string> codec{};         ///< Of video: "h264"; see findVideoCodec.
    std::optional<int> quality{};               ///< Of lossy formats, 1 to 100 (the best).
    std::optional<std::string> encoderSpeed{};  ///< Of H.264 and H.265: "veryfast".
    std::optional<int> encoderThreads{};        ///< Of video.
    std::optional<ExrPixels> exrPixels{};
    std::optional<ExrCompression> exrCompression{};
};

StorageChoice storageOf(const WriteOptions& options);

/// Why a file cannot be written with these choices, as a sentence without the file's name; empty if
/// it can: the codec is unknown or the container cannot hold it, or a choice does not apply to the
/// format.
std::string storageFault(const std::filesystem::path& path, const StorageChoice& choice);

/// Why a file cannot hold frames of the size and rate of the options, as a sentence without the
/// file's name; empty if it can. The options have passed storageFault.
std::string pictureFault(const std::filesystem::path& path, const WriteOptions& options);

/// A sentence for a quality that looks like the constant rate factor of H.264 or H.265, whose scale
/// runs the other way: 0 is the best, and 18 to 28 are usual. Empty for others.
std::string qualityDoubt(const std::filesystem::path& path, const StorageChoice& choice);

/// Whether the bit rate is limited: of H.264 and H.265 without a quality. The encoders keep to a
/// limit by how far their threads are at the moment, so that a chosen number of threads above 1,
/// which is to give the same bytes each time, lifts it.
bool limitsRate(const VideoCodec& codec, const StorageChoice& choice);

/// A sentence for a limit that a number of threads lifts. Empty for others.
std::string unlimitedRate(const std::filesystem::path& path, const StorageChoice& choice);

}  // namespace ruvex::media
