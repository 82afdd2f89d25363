// The dialogs of the module, for tests.

#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "pages/resources/resources.h"
#include "sdk/resources/dialog_template.h"
#include "tests/resources/resource_bytes.h"

namespace ruvex::resource_test {

inline constexpr std::uint32_t kVisibleBit = 0x10000000;
inline constexpr std::uint32_t kTabStopBit = 0x00010000;
inline constexpr int kDialogWidth = 190;
inline constexpr int kDialogHeight = 160;

inline ResourceFile moduleResources() {
    return ResourceFile({ruvexResourcesBegin, ruvexResourcesEnd});
}

/// Fails the test if there is no such dialog.
inline DialogTemplate dialogOf(std::uint16_t number) {
    auto dialog = readDialog(moduleResources(), number);
    EXPECT_TRUE(dialog) << number;
    return dialog ? *dialog : DialogTemplate{};
}

/// A control's title, taken apart by its semicolons.
inline std::vector<std::string> fieldsOf(const DialogControl& control) {
    std::istringstream title(plain(control.title.text));
    std::vector<std::string> fields;
    for (std::string field; std::getline(title, field, ';');) fields.push_back(field);
    return fields;
}

inline bool isTabStop(const DialogControl& control) {
    return (control.style & kTabStopBit) != 0;
}
inline bool isNumber(const DialogControl& control) {
    const std::vector<std::string> fields = fieldsOf(control);
    return fields.size() > 1 && fields[1] == "class=dsnewnumberctrl";
}
inline bool isChip(const DialogControl& control) {
    const std::vector<std::string> fields = fieldsOf(control);
    return fields.size() > 1 && fields[1] == "class=dsnewcolorchipctrl";
}
inline bool isBox(const DialogControl& control) {
    return control.windowClass.number == kButtonClass && (control.style & 0xF) == 0x7;
}

}  // namespace ruvex::resource_test
