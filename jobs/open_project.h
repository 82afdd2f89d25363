// The open project of the process, as long as a command needs one.

#pragma once

#include "runtime/project.h"

namespace ruvex::jobs {

/// The project is open as long as this lives. Throws runtime::Error for a project that cannot be.
struct OpenProject {
    explicit OpenProject(const runtime::Project& project) { runtime::openProject(project); }
    ~OpenProject() { runtime::closeProject(); }
    OpenProject(const OpenProject&) = delete;
    OpenProject& operator=(const OpenProject&) = delete;
};

}  // namespace ruvex::jobs
