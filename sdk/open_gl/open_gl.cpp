#include "sdk/open_gl/open_gl.h"

#include "sdk/open_gl/open_gl_loader.h"

namespace ruvex {
namespace {

OpenGlLoader systemLibraries;

bool hasRoom(GLenum depthOfStack, GLenum greatestDepth) {
    GLint depth = 0, greatest = 0;
    gl().glGetIntegerv(depthOfStack, &depth);
    gl().glGetIntegerv(greatestDepth, &greatest);
    return depth < greatest;
}

}  // namespace

const OpenGl* OpenGlLoader::open() {
    if (isOpen_.load(std::memory_order_acquire)) return &functions_;
    const std::lock_guard lock(mutex_);
    if (isOpen_.load(std::memory_order_relaxed)) return &functions_;
    if (!openLibraries()) {
        closeLibraries();
        return nullptr;
    }
    isOpen_.store(true, std::memory_order_release);
    return &functions_;
}

void OpenGlLoader::close() {
    const std::lock_guard lock(mutex_);
    isOpen_ = false;
    closeLibraries();
}

const OpenGl* openGl() {
    return systemLibraries.open();
}

const OpenGl& gl() {
    return systemLibraries.functions();
}

bool canPushAttributes() {
    return hasRoom(GL_ATTRIB_STACK_DEPTH, GL_MAX_ATTRIB_STACK_DEPTH);
}

bool canPushClientAttributes() {
    return hasRoom(GL_CLIENT_ATTRIB_STACK_DEPTH, GL_MAX_CLIENT_ATTRIB_STACK_DEPTH);
}

void closeOpenGl() {
    systemLibraries.close();
}

}  // namespace ruvex
