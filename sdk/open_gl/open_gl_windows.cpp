#include "sdk/open_gl/open_gl_loader.h"

namespace ruvex {

// Every Windows has both libraries, and they are linked.
bool OpenGlLoader::openLibraries() {
#define RUVEX_TAKE(name) functions_.name = &::name;
    RUVEX_GL_FUNCTIONS(RUVEX_TAKE)
    RUVEX_GLU_FUNCTIONS(RUVEX_TAKE)
#undef RUVEX_TAKE
    return true;
}

void OpenGlLoader::closeLibraries() {
    functions_ = {};
}

}  // namespace ruvex
