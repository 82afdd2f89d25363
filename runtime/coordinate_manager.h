// The host's coordinate manager for pictures of one size in one project.

#pragma once

#include "runtime/project.h"
#include "sdk/com/com_ptr.h"
#include "sdk/effect/coord_man.h"

namespace ruvex::runtime {

/// `width` and `height` are the size of the first input (the size being rendered).
ComPtr<IDSCoordMan> makeCoordinateManager(const Project& project, int width, int height);

}  // namespace ruvex::runtime
