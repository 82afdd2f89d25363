// The forms in which EXR files store their pixels.

#pragma once

namespace ruvex::media {

/// The type of an EXR component. A half float has 11 significant bits.
enum class ExrPixels { Half, Float };

/// All are lossless. Zip1 compresses each line by itself, Zip16 sixteen lines together.
enum class ExrCompression { None, Rle, Zip1, Zip16 };

struct ExrForm {
    ExrPixels pixels = ExrPixels::Float;
    ExrCompression compression = ExrCompression::Zip16;
};

}  // namespace ruvex::media
