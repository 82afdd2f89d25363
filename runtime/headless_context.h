// An OpenGL context off screen, with pixels of its own.

#pragma once

#include <memory>
#include <string>

#include "runtime/error.h"
#include "sdk/com/com.h"

namespace ruvex::runtime {

/// Throws Error: nothing can be drawn off screen, and `what` is the reason.
[[noreturn]] inline void failOffScreen(const std::string& what) {
    throw Error("cannot draw with OpenGL off screen: " + what);
}

/// A context of the compatibility profile and the pixels that it draws into and reads: red, green,
/// blue and alpha with 8 bits each. The viewport is all of them. One thread creates, uses and
/// destroys it.
class HeadlessContext {
public:
    /// Sizes in pixels, above 0. `openGl` (sdk/open_gl/open_gl.h) has succeeded before. Throws
    /// Error if the system lacks something or the size is too large.
    HeadlessContext(LONG width, LONG height);
    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;
    ~HeadlessContext();

private:
    friend class CurrentContext;

    /// The objects of the system: headless_context_egl.cpp, headless_context_windows.cpp.
    struct System;
    std::unique_ptr<System> system_;
};

/// Makes a context current as long as it lives, then the one that was current before.
class CurrentContext {
public:
    /// Throws Error if the context can't be made current. `own` outlives this object.
    explicit CurrentContext(const HeadlessContext& own);
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
    ~CurrentContext();

private:
    /// What was current before.
    struct Before;
    std::unique_ptr<Before> before_;
};

}  // namespace ruvex::runtime
