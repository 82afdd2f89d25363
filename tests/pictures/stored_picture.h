// Pictures of either format as PNG files that any viewer shows.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// Writes a picture without loss, right way up, as opaque 8-bit panels: colour at the left, alpha
/// as a grey at the right. S2.14 has two rows of panels, high bytes above low bytes, of 2 v for a
/// component v of 0 or more and -2 v - 1 for one below, so that the upper panels look like the
/// picture. Throws media::MediaError.
template <class P>
void writeStored(const std::filesystem::path& file, const Picture<P>& picture);

/// The picture of such a file. Throws media::MediaError, also for a file of another layout.
template <class P>
Picture<P> readStored(const std::filesystem::path& file);

/// How a picture differs from the stored one. Pixels are counted from the bottom left.
struct PictureDifference {
    int pixels = 0;
    int firstX = 0, firstY = 0;
    int largest = 0;  ///< of one component

    std::string text() const;
};

/// None for equal pictures. A picture of another size differs in all its pixels.
template <class P>
std::optional<PictureDifference> differenceOf(const Picture<P>& got, const Picture<P>& stored);

/// Where they differ and by how much, brightest where the most: for looking at.
template <class P>
Picture<P> differencePicture(const Picture<P>& got, const Picture<P>& stored);

}  // namespace ruvex::test
