// Opens and closes the libraries of OpenGL and GLU.

#pragma once

#include <atomic>
#include <mutex>

#include "sdk/open_gl/open_gl.h"

namespace ruvex {

/// Two libraries and their functions. The destructor does not close them: at the end of a process
/// other libraries may already be gone. All functions but `close` may be called from any thread.
class OpenGlLoader {
public:
    /// The libraries of the system.
    OpenGlLoader() = default;
    /// Libraries by name or path. Windows ignores both: there the system's are linked.
    OpenGlLoader(const char* openGlName, const char* gluName)
        : openGlName_(openGlName), gluName_(gluName) {}

    /// Opens the libraries unless they are open. Null if that fails; the next call tries again.
    const OpenGl* open();
    const OpenGl& functions() const { return functions_; }
    void close();

private:
    bool openLibraries();
    void closeLibraries();

    const char* openGlName_ = "libOpenGL.so.0";
    const char* gluName_ = "libGLU.so.1";
    std::mutex mutex_;
    std::atomic<bool> isOpen_ = false;
    OpenGl functions_;
    /// The system's handles of the libraries; null while they are closed.
    void* openGlHandle_ = nullptr;
    void* gluHandle_ = nullptr;
};

}  // namespace ruvex
