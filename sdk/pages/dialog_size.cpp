#include "sdk/pages/dialog_size.h"

#include "sdk/resources/byte_reader.h"
#include "sdk/resources/module_resource.h"

namespace {

/// Bytes before the width in a template: version, signature, help number, extended style, style,
/// number of controls, x and y.
constexpr std::size_t kBeforeSize = 2 + 2 + 4 + 4 + 4 + 2 + 2 + 2;

}  // namespace

SIZE DSDialogSize(HINSTANCE module, UINT dialogId) {
    ruvex::ByteReader reader(ruvex::moduleDialog(module, static_cast<std::uint16_t>(dialogId)));
    reader.take(kBeforeSize);
    const auto width = static_cast<std::int16_t>(reader.u16());
    const auto height = static_cast<std::int16_t>(reader.u16());
    return reader.failed() ? SIZE{0, 0} : SIZE{width, height};
}
