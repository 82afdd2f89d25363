// Several changes of parameters as one step of the host's undo.

#pragma once

#include <string>

#include "adapters/openfx/host_parameter.h"

namespace ruvex::openfx {

/// The step lasts as long as the object.
class EditBlock {
public:
    EditBlock(const ParameterSet& set, const std::string& name)
        : set_(set),
          begun_(set.host().parameter->paramEditBegin(set.handle(), name.c_str()) == kOfxStatOK) {}
    ~EditBlock() {
        if (begun_) set_.host().parameter->paramEditEnd(set_.handle());
    }
    EditBlock(const EditBlock&) = delete;
    EditBlock& operator=(const EditBlock&) = delete;

private:
    ParameterSet set_;
    bool begun_;
};

}  // namespace ruvex::openfx
