// The project of a render.

#pragma once

#include "sdk/effect/content.h"

namespace ruvex::runtime {

/// The project frame: pixels, the width of a pixel over its height, frames per second.
struct Project {
    int width = 0;
    int height = 0;
    double pixelAspect = 1.0;
    double frameRate = 25.0;
};

/// Throws Error, naming the field, for a size below 1 and for an aspect or a rate that is not above
/// 0 and finite.
void checkProject(const Project& project);

/// The content properties by which an effect reads the project: the four sizes of the project
/// frame. Throws as checkProject does.
DSContent contentOf(const Project& project);

}  // namespace ruvex::runtime
