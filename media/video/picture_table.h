// The pictures of a video as its packets list them.

#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "media/rational.h"

namespace ruvex::media {

/// A picture that is shown. Its times are in the stream's time base.
struct ListedPicture {
    std::int64_t time = 0;
    std::int64_t duration = 0;
    bool key = false;  ///< Whether decoding can begin here.

    friend bool operator==(const ListedPicture&, const ListedPicture&) = default;
};

/// What reading all packets of a video tells.
struct PictureTable {
    std::vector<ListedPicture> pictures;  ///< At least one; in display order, if timed.
    /// Whether each picture has a distinct time. If not, times say nothing.
    bool timed = true;
    Rational unit{1, 1};             ///< The time base: seconds in a unit.
    std::vector<Rational> declared;  ///< The rates that the container names, at most two.

    friend bool operator==(const PictureTable&, const PictureTable&) = default;
};

/// Reads the whole file, without decoding it. Throws MediaError if it is cut off or has no frames.
PictureTable listPictures(const std::filesystem::path& path);

}  // namespace ruvex::media
