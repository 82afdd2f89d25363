#include <dlfcn.h>
#include <utility>

#include "sdk/open_gl/open_gl_loader.h"

namespace ruvex {
namespace {

/// Neither of the two libraries depends on one of a window system.
void* openLibrary(const char* name) {
    return dlopen(name, RTLD_NOW | RTLD_LOCAL);
}

void closeLibrary(void*& handle) {
    if (handle) dlclose(std::exchange(handle, nullptr));
}

template <class Function>
bool findFunction(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

}  // namespace

bool OpenGlLoader::openLibraries() {
    openGlHandle_ = openLibrary(openGlName_);
    gluHandle_ = openGlHandle_ ? openLibrary(gluName_) : nullptr;
    if (!gluHandle_) return false;
#define RUVEX_FIND_GL(name) &&findFunction(openGlHandle_, #name, functions_.name)
#define RUVEX_FIND_GLU(name) &&findFunction(gluHandle_, #name, functions_.name)
    return true RUVEX_GL_FUNCTIONS(RUVEX_FIND_GL) RUVEX_GLU_FUNCTIONS(RUVEX_FIND_GLU);
#undef RUVEX_FIND_GL
#undef RUVEX_FIND_GLU
}

void OpenGlLoader::closeLibraries() {
    functions_ = {};
    closeLibrary(gluHandle_);
    closeLibrary(openGlHandle_);
}

}  // namespace ruvex
