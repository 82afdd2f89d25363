// The class of the tool with the on-screen controls, where the effect finds it.

#pragma once

#include <memory>

#include "runtime/module_loader.h"

namespace ruvex::openfx {

/// The effect makes its tool with CoCreateInstance. On Windows that finds the classes of registered
/// modules, and that of a bundle is not registered: so the class is made known to the calling
/// thread's COM apartment as long as this object lives, on whose thread it is destroyed. On other
/// systems a loaded module is enough.
class ToolClass {
public:
    /// Throws runtime::StatusError.
    explicit ToolClass(const runtime::Module& module);
    ~ToolClass();
    ToolClass(const ToolClass&) = delete;
    ToolClass& operator=(const ToolClass&) = delete;

private:
    struct Registration;
    std::unique_ptr<Registration> registration_;
};

}  // namespace ruvex::openfx
