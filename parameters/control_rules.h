// The rules that show and enable the controls of a page by the value of one parameter.

#pragma once

#include <span>

#include "parameters/parameter_id.h"
#include "parameters/parameter_row.h"

namespace ruvex {

/// Show: the control and its caption are shown. Enable: the control is enabled; its caption stays
/// as it is.
enum class ControlState { Show, Enable };

/// The controls of `parameters` have the state exactly while the deciding parameter has the value.
/// Rows are constants.
struct ControlRule {
    ParameterPage page;
    ParameterId decidedBy;  ///< a list or a check box
    int value;              ///< of a check box: 1, for any value but 0
    ControlState state;
    /// The three channels of a colour mean the whole group: box, chip, numbers and captions.
    std::span<const ParameterId> parameters;

    /// True if the controls have the state when the deciding parameter has this value.
    bool appliesTo(int decidingValue) const;
};

/// All rules.
std::span<const ControlRule> controlRules();

/// The value of every parameter, in the order of ParameterId.
using AllParameterValues = std::span<const double, kParameterCount>;

/// True if the page shows the parameter's control for these values; true without a rule.
bool isControlShown(ParameterId id, AllParameterValues values);

/// True if the parameter's control is enabled for these values; true without a rule.
bool isControlEnabled(ParameterId id, AllParameterValues values);

}  // namespace ruvex
