// Reads a compiled resource file (.res): its records and string tables.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "sdk/com/export.h"

namespace ruvex {

/// Numbers of resource types.
enum class ResourceType : std::uint16_t { Bitmap = 2, Dialog = 5, String = 6 };

/// A view of a text in the file, which is UTF-16 in little-endian order.
class ResourceText {
public:
    ResourceText() = default;
    explicit ResourceText(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    /// In 16-bit units, like the index of `[]`.
    std::size_t size() const { return bytes_.size() / 2; }
    bool empty() const { return size() == 0; }
    char16_t operator[](std::size_t i) const {
        return static_cast<char16_t>(bytes_[2 * i] | bytes_[2 * i + 1] << 8);
    }

private:
    std::span<const unsigned char> bytes_;
};

/// A resource's type or name: a number or, without one, a text.
struct ResourceName {
    std::optional<std::uint16_t> number;
    ResourceText text;
};

/// One resource. `data` and the texts are views into the file.
struct ResourceRecord {
    ResourceName type;
    ResourceName name;
    std::span<const unsigned char> data;
};

/// A view of a compiled resource file in memory, which must outlive it and all results. Allocates
/// nothing. Never reads outside the given bytes: a truncated or damaged file is treated as if it
/// ended before the first record that does not fit.
class DSSDK_API ResourceFile {
public:
    explicit ResourceFile(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    /// The first record with this type and number.
    std::optional<ResourceRecord> find(ResourceType type, std::uint16_t number) const;

    /// The string with this identifier. No value if there is none; an empty string in the table
    /// means that there is none.
    std::optional<ResourceText> string(std::uint16_t id) const;

private:
    std::span<const unsigned char> bytes_;
};

}  // namespace ruvex
