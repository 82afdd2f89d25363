// Fixing the number of workers of the module under test.

#pragma once

#include "parameters/ruvex_interface.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// For as long as it lives; then the number is the machine's again.
class ModuleWorkers {
public:
    ModuleWorkers(Renderer& renderer, int count)
        : control_(*static_cast<IRuvexControl*>(renderer.session().ownInterface(kRuvexControlId))) {
        control_.setWorkerCount(count);
    }
    ~ModuleWorkers() { control_.setWorkerCount(0); }
    ModuleWorkers(const ModuleWorkers&) = delete;
    ModuleWorkers& operator=(const ModuleWorkers&) = delete;

private:
    IRuvexControl& control_;
};

}  // namespace ruvex::test
