// A look: values and keys of parameters, with what its file says about them.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "looks/parameter_change.h"

namespace ruvex::looks {

/// The longest side of a project frame, in pixels.
inline constexpr int kLongestProjectSide = 65536;

/// The project frame that lengths in parameters refer to, in pixels: sides from 1 to
/// kLongestProjectSide.
struct ProjectSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const ProjectSize&, const ProjectSize&) = default;
};

/// Texts are empty where the look has none.
struct Look {
    std::string name{};
    std::string description{};  ///< What the look is for, in one line.
    std::string author{};
    std::optional<ProjectSize> projectSize{};  ///< Of the frame that the look was made for.
    std::vector<ParameterChange> changes{};

    friend bool operator==(const Look&, const Look&) = default;
};

}  // namespace ruvex::looks
