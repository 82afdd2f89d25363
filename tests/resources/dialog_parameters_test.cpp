#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "pages/resources/resource_ids.h"
#include "parameters/parameter_table.h"
#include "parameters/strings.h"
#include "tests/resources/module_dialogs.h"
#include "tests/resources/released_dialogs.h"

namespace ruvex {
namespace {

using resource_test::dialogOf;
using resource_test::fieldsOf;
using resource_test::isNumber;
using resource_test::plain;

std::string rangeField(const char* name, double limit) {
    std::ostringstream text;
    text << name << '=' << limit;
    return text.str();
}

TEST(DialogParameters, ANumbersTitleHasTheLabelRangeAndDecimalsOfItsParameter) {
    std::multiset<ParameterId> shown;
    for (const ReleasedDialog& released : kReleasedDialogs) {
        for (const DialogControl& control : dialogOf(released.number).controls) {
            if (!isNumber(control)) continue;
            const std::vector<std::string> fields = fieldsOf(control);
            const ParameterRow* row = findParameter(fields[0]);
            ASSERT_TRUE(row != nullptr && row->controlRange) << fields[0];
            EXPECT_EQ(fields[0], row->label);
            std::vector<std::string> expected = {fields[0], fields[1],
                                                 rangeField("min", row->controlRange->low),
                                                 rangeField("max", row->controlRange->high)};
            if (row->decimals == 0) expected.emplace_back("decimals=0");
            EXPECT_EQ(fields, expected);
            shown.insert(row->id);
        }
    }
    std::multiset<ParameterId> expected;
    for (const ParameterRow& row : parameterTable()) {
        if (row.controlRange) expected.insert(row.id);
    }
    EXPECT_EQ(shown, expected);
}

TEST(DialogParameters, TheCaptionOfANumberIsItsLabelOrItsChannel) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        const DialogTemplate dialog = dialogOf(released.number);
        for (std::size_t i = 1; i < dialog.controls.size(); ++i) {
            if (!isNumber(dialog.controls[i])) continue;
            const std::string label = fieldsOf(dialog.controls[i])[0];
            const std::string caption = plain(dialog.controls[i - 1].title.text);
            const bool isChannel = label.find(" Colour ") != std::string::npos;
            EXPECT_EQ(caption, isChannel ? label.substr(label.size() - 1) : label);
        }
    }
}

TEST(DialogParameters, EveryToolTipHasAText) {
    for (const ReleasedTip& tip : kReleasedTips) {
        EXPECT_FALSE(strings::text(tip.string).empty()) << tip.string;
    }
    // The button of the manual has the number of a tool-tip that never had a text.
    EXPECT_TRUE(strings::text(1163).empty());
}

TEST(DialogParameters, ANumbersToolTipIsTheHintOfItsParameter) {
    std::map<std::uint32_t, int> tips;
    for (const ReleasedTip& tip : kReleasedTips) tips[tip.control] = tip.string;
    for (const ReleasedDialog& released : kReleasedDialogs) {
        for (const DialogControl& control : dialogOf(released.number).controls) {
            if (!isNumber(control)) continue;
            const std::vector<std::string> fields = fieldsOf(control);
            EXPECT_EQ(tips[control.id], findParameter(fields[0])->hintString) << fields[0];
        }
    }
}

TEST(DialogParameters, EveryTabStopButTheManualsHasAToolTip) {
    std::set<std::uint32_t> withTip;
    for (const ReleasedTip& tip : kReleasedTips) withTip.insert(tip.control);
    std::set<std::uint32_t> stops;
    for (const ReleasedDialog& dialog : kReleasedDialogs) {
        stops.insert(dialog.tabOrder.begin(), dialog.tabOrder.end());
    }
    withTip.insert(IDC_ONLINE_HELP);
    EXPECT_EQ(withTip, stops);
}

}  // namespace
}  // namespace ruvex
