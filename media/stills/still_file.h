// Pictures in files of their own: PNG, TIFF, EXR, DPX and JPEG.

#pragma once

#include <filesystem>
#include <optional>

#include "media/file_kind.h"
#include "media/frame.h"
#include "media/pixels/alpha.h"
#include "media/rational.h"

namespace ruvex::media {

/// A decoded file.
struct Still {
    Frame frame;  ///< Straight colour; S2.14 if the file has over 8 bits a component.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
};

/// What of a picture the frame does not say.
struct StillOptions {
    Rational pixelAspect{1, 1};
    std::optional<AlphaForm> alpha{};  ///< The kind's usual form without it.
    std::optional<int> quality{};      ///< Of a JPEG, 1 to 100; kUsualJpegQuality without it.
};

inline constexpr int kUsualJpegQuality = 95;

/// The form in which files of a kind hold colour, if nothing else is said: premultiplied in EXR,
/// straight in all others.
constexpr AlphaForm usualAlpha(FileKind kind) {
    return kind == FileKind::Exr ? AlphaForm::Premultiplied : AlphaForm::Straight;
}

/// Reads a file of the kind that its name says. `alpha` is the form of its colours, the kind's
/// usual one without it. Throws MediaError on a file that is missing, cut off, damaged or not of
/// its kind, and on one that is no still.
Still readStill(const std::filesystem::path& file, std::optional<AlphaForm> alpha = {});

/// Writes a file of the kind that its name says, complete or not at all. PNG, TIFF, DPX: 8 or 16
/// bits a component by the frame's depth, with alpha, held to black and white. EXR: floats with
/// alpha, 1 for white, exact. JPEG: 8 bits, no alpha. Throws MediaError.
void writeStill(const std::filesystem::path& file, const Frame& frame,
                const StillOptions& options = {});

}  // namespace ruvex::media
