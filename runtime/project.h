// The project that a render belongs to.

#pragma once

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

/// Makes it the open project of this process: sets the four content properties of the project
/// frame. There is one open project at a time. Throws as checkProject does.
void openProject(const Project& project);

/// Takes the content properties away again.
void closeProject();

}  // namespace ruvex::runtime
