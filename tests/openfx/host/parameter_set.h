// The parameters of an effect, and the edits of them that can be undone.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/openfx/host/parameter.h"

namespace ruvex::ofxhost {

/// One undo step: what its parameters were before and after it.
struct UndoStep {
    struct Change {
        Parameter* parameter;
        ParameterState before;
        ParameterState after;
    };
    std::string name;
    std::vector<Change> changes;
};

class ParameterSet {
public:
    explicit ParameterSet(Host& host);
    /// Instances of a description's parameters.
    ParameterSet(const ParameterSet& description);

    OfxParamSetHandle handle() const { return handle_.get(); }
    Host& host() const { return properties.host(); }

    /// Null if there is none of this name.
    Parameter* find(const std::string& name) const;
    /// Throws std::out_of_range if there is none of this name.
    Parameter& operator[](const std::string& name) const;
    const std::vector<std::unique_ptr<Parameter>>& all() const { return all_; }
    Parameter& define(const std::string& type, const std::string& name);

    /// Blocks may lie in one another; the outermost one is the undo step.
    void beginEdit(const std::string& name);
    /// False without a block.
    bool endEdit();
    /// Makes a change of one parameter, in the open block or as a step of its own. Parameters
    /// whose kOfxParamPropCanUndo is 0 are not part of steps.
    void edit(Parameter& parameter, const std::function<void(Parameter&)>& change);

    const std::vector<UndoStep>& steps() const { return steps_; }
    /// Takes the last step back; false if there is none.
    bool undo();
    bool redo();
    int openBlocks() const { return openBlocks_; }

    PropertySet properties;
    /// Called after each change that the plug-in made.
    std::function<void(Parameter&)> onPlugInEdit{};

private:
    void closeStep();

    std::vector<std::unique_ptr<Parameter>> all_;
    OwnHandle<HandleKind::Parameters, OfxParamSetHandle> handle_{this};
    int openBlocks_ = 0;
    UndoStep open_;
    std::vector<UndoStep> steps_;
    std::vector<UndoStep> undone_;
};

}  // namespace ruvex::ofxhost
