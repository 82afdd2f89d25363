// What the alpha of a result is.

#pragma once

namespace ruvex::jobs {

/// The effect makes parts of a picture transparent: behind torn lines, outside a rolled picture,
/// where nothing is received.
enum class ResultAlpha {
    Effect,  ///< Alpha as the effect gives it.
    Opaque,  ///< Full alpha everywhere; colours are kept.
};

}  // namespace ruvex::jobs
