// The effects that all instances share.

#pragma once

#include "adapters/common/picture_effect.h"

namespace ruvex::openfx {

/// Of the process. Hosts make an instance for each frame, so that effects belong to none.
adapters::PictureEffectPool& effectPool();

/// Destroys the pool and its effects, when the plug-in is unloaded: no other call of the host runs.
/// The next effectPool makes a new one.
void closeEffectPool();

}  // namespace ruvex::openfx
