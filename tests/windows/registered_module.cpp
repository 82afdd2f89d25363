// In place of a module that the tests load: the effect is made by COM, from the registered class.

#include <objbase.h>
#include <stdexcept>

#include "tests/effect/render_fixture.h"

namespace ruvex::test {

std::shared_ptr<runtime::Module> builtModule() {
    // Once in the process, to its end.
    static const HRESULT started = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (FAILED(started)) throw std::runtime_error("COM does not start");
    return nullptr;
}

}  // namespace ruvex::test
