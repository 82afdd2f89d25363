#include "runtime/project.h"

#include <cmath>
#include <string>

#include "runtime/error.h"

namespace ruvex::runtime {

namespace {

bool isPositive(double value) {
    return std::isfinite(value) && value > 0.0;
}

}  // namespace

void checkProject(const Project& project) {
    if (project.width < 1 || project.height < 1) {
        throw Error("the project size is " + std::to_string(project.width) + "x" +
                    std::to_string(project.height) + "; both have to be at least 1");
    }
    if (!isPositive(project.pixelAspect)) {
        throw Error("the project's pixel aspect is " + std::to_string(project.pixelAspect) +
                    "; it has to be above 0");
    }
    if (!isPositive(project.frameRate)) {
        throw Error("the project's frame rate is " + std::to_string(project.frameRate) +
                    "; it has to be above 0");
    }
}

DSContent contentOf(const Project& project) {
    checkProject(project);
    return {{kDSProjectUserSizeX, project.width},
            {kDSProjectUserSizeY, project.height},
            {kDSProjectWorldSizeX, project.width},
            {kDSProjectWorldSizeY, project.height / project.pixelAspect}};
}

}  // namespace ruvex::runtime
