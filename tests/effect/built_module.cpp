#include "tests/effect/render_fixture.h"

namespace ruvex::test {

std::shared_ptr<runtime::Module> builtModule() {
    static const std::shared_ptr<runtime::Module> module = runtime::Module::load(RUVEX_MODULE_FILE);
    return module;
}

}  // namespace ruvex::test
