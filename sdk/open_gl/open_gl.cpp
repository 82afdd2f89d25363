#include "sdk/open_gl/open_gl.h"

#include "sdk/open_gl/open_gl_loader.h"

namespace ruvex {
namespace {

OpenGlLoader systemLibraries;

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

void closeOpenGl() {
    systemLibraries.close();
}

}  // namespace ruvex
