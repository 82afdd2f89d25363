#include "sdk/pages/dialog_size.h"
#include "sdk/resources/dialog_template.h"
#include "sdk/resources/module_resource.h"

SIZE DSDialogSize(HINSTANCE module, UINT dialogId) {
    const auto number = static_cast<std::uint16_t>(dialogId);
    const auto dialog = ruvex::readDialog(ruvex::moduleDialog(module, number));
    return dialog ? SIZE{dialog->width, dialog->height} : SIZE{0, 0};
}
