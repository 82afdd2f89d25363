#include "tests/openfx/host/parameter_set.h"

#include <algorithm>
#include <stdexcept>

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {

ParameterSet::ParameterSet(Host& host) : properties(host) {
    properties.add(kOfxPropType, text("OfxTypeParameterSet"), Writer::Host);
}

ParameterSet::ParameterSet(const ParameterSet& description) : properties(description.properties) {
    for (const auto& parameter : description.all_) {
        all_.push_back(std::make_unique<Parameter>(*parameter, *this));
    }
}

Parameter* ParameterSet::find(const std::string& name) const {
    const auto found = std::ranges::find(all_, name, &Parameter::name);
    return found == all_.end() ? nullptr : found->get();
}

Parameter& ParameterSet::operator[](const std::string& name) const {
    Parameter* parameter = find(name);
    if (!parameter) throw std::out_of_range("no parameter " + name);
    return *parameter;
}

Parameter& ParameterSet::define(const std::string& type, const std::string& name) {
    return *all_.emplace_back(std::make_unique<Parameter>(host(), type, name));
}

void ParameterSet::beginEdit(const std::string& name) {
    if (openBlocks_++ == 0) open_ = {name, {}};
}

bool ParameterSet::endEdit() {
    if (openBlocks_ == 0) return false;
    if (--openBlocks_ == 0) closeStep();
    return true;
}

void ParameterSet::edit(Parameter& parameter, const std::function<void(Parameter&)>& change) {
    beginEdit(parameter.name());
    const bool canUndo =
        host().traits.ignoresCanUndo || parameter.properties.number(kOfxParamPropCanUndo) != 0;
    if (canUndo && std::ranges::find(open_.changes, &parameter, &UndoStep::Change::parameter) ==
                       open_.changes.end()) {
        open_.changes.push_back({&parameter, parameter.state(), {}});
    }
    change(parameter);
    endEdit();
}

void ParameterSet::closeStep() {
    std::erase_if(open_.changes, [](UndoStep::Change& change) {
        change.after = change.parameter->state();
        return change.after == change.before;
    });
    if (open_.changes.empty()) return;
    steps_.push_back(std::move(open_));
    undone_.clear();
}

bool ParameterSet::undo() {
    if (steps_.empty()) return false;
    undone_.push_back(std::move(steps_.back()));
    steps_.pop_back();
    for (const auto& change : undone_.back().changes) change.parameter->restore(change.before);
    return true;
}

bool ParameterSet::redo() {
    if (undone_.empty()) return false;
    steps_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    for (const auto& change : steps_.back().changes) change.parameter->restore(change.after);
    return true;
}

}  // namespace ruvex::ofxhost
