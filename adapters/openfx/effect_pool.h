// The effects that all instances share.

#pragma once

#include "adapters/common/picture_effect.h"

namespace ruvex::openfx {

/// Of the process. Hosts make an instance for each frame, so that effects belong to none.
adapters::PictureEffectPool& effectPool();

}  // namespace ruvex::openfx
