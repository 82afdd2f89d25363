// Reading and writing still files: PNG, TIFF, EXR, DPX and JPEG.

#pragma once

#include <filesystem>
#include <optional>

#include "media/file_kind.h"
#include "media/frame.h"
#include "media/pixels/alpha.h"
#include "media/rational.h"
#include "media/stills/exr_form.h"

namespace ruvex::media {

/// A decoded file.
struct Still {
    Frame frame;                 ///< Straight colours.
    Depth depth = Depth::Bits8;  ///< Of the file: S2.14 if it has more than 8 bits a component.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
};

/// How a still is stored.
struct StillOptions {
    Rational pixelAspect{1, 1};        ///< Width of a pixel over its height.
    std::optional<AlphaForm> alpha{};  ///< Default: usualAlpha of the file's kind.
    std::optional<int> quality{};      ///< Of a JPEG, 1 to 100; default: kUsualJpegQuality.
    ExrForm exr{};                     ///< Of an EXR.
};

inline constexpr int kUsualJpegQuality = 95;

/// The default alpha form of files of a kind: premultiplied for EXR, straight for the others.
constexpr AlphaForm usualAlpha(FileKind kind) {
    return kind == FileKind::Exr ? AlphaForm::Premultiplied : AlphaForm::Straight;
}

/// Reads a still of the kind that its extension says. `alpha` is the form of the file's colours;
/// default: usualAlpha. `depth` is the depth of the frame; default: the file's. Throws MediaError
/// if the file is missing, cut off, damaged or of another kind.
Still readStill(const std::filesystem::path& file, std::optional<AlphaForm> alpha = {},
                std::optional<Depth> depth = {});

/// Writes a still of the kind that its extension says; the file appears only when it is complete.
/// PNG, TIFF and DPX: RGBA of 8 bits a component for 8-bit frames, else of 16 bits, clamped to
/// black and white. EXR: RGBA, white 1.0, in 32-bit floats, lossless, or in half floats, each the
/// nearest. JPEG: 8 bits, no alpha. Throws
/// MediaError.
void writeStill(const std::filesystem::path& file, const Frame& frame,
                const StillOptions& options = {});

}  // namespace ruvex::media
