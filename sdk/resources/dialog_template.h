// Reads dialog templates (DIALOGEX) and bitmaps of a compiled resource file.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "sdk/resources/resource_file.h"

namespace ruvex {

/// One control of a template. Rectangles are in dialog units of the dialog.
struct DialogControl {
    std::uint32_t id = 0;  ///< 0xFFFFFFFF for a control without an identifier of its own
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
    std::int16_t x = 0, y = 0, width = 0, height = 0;
    /// A number for the system's own classes, even if the template names them; a text otherwise.
    ResourceName windowClass;
    /// A number for a static with a bitmap, a text otherwise.
    ResourceName title;
};

/// Numbers of the system's own window classes.
inline constexpr std::uint16_t kButtonClass = 0x0080;
inline constexpr std::uint16_t kStaticClass = 0x0082;
inline constexpr std::uint16_t kComboBoxClass = 0x0085;

struct DialogTemplate {
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
    std::int16_t x = 0, y = 0, width = 0, height = 0;
    ResourceText title;
    std::uint16_t pointSize = 0;
    std::uint16_t weight = 0;
    bool italic = false;
    ResourceText typeface;
    std::vector<DialogControl> controls;
};

/// A picture with 24 bits a pixel.
struct ResourceBitmap {
    int width = 0;
    int height = 0;
    /// Rows of 3-byte pixels (blue, green, red), the bottom row first, each padded to 4 bytes.
    std::span<const unsigned char> pixels;
};

/// Dialog `number` of the file. No value if there is none, if it is damaged, and for templates of
/// the old form (DIALOG). The texts are views into the file. Allocates only the list of controls;
/// throws std::bad_alloc if there is no memory for it.
DSSDK_API std::optional<DialogTemplate> readDialog(const ResourceFile& file, std::uint16_t number);
/// The same for the bytes of a template.
DSSDK_API std::optional<DialogTemplate> readDialog(std::span<const unsigned char> bytes);

/// Bitmap `number` of the file. No value if there is none, if it is damaged, or for another form
/// than 24 bits a pixel without compression.
DSSDK_API std::optional<ResourceBitmap> readBitmap(const ResourceFile& file, std::uint16_t number);

}  // namespace ruvex
