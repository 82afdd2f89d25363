// A number of workers for the frames of one renderer.

#pragma once

#include "parameters/ruvex_interface.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// Sets it for as long as the object lives; then the number is the machine's again.
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
