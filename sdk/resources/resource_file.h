// Reading a compiled resource file (.res): its records, and the strings among them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "sdk/com/export.h"

namespace ruvex {

/// The resource types that are given as numbers.
enum class ResourceType : std::uint16_t { Bitmap = 2, Dialog = 5, String = 6 };

/// A text as it lies in the file: UTF-16, low byte first. A view into the file.
class ResourceText {
public:
    explicit ResourceText(std::span<const unsigned char> bytes = {}) : bytes_(bytes) {}

    /// In units of 16 bits, as `[]` counts.
    std::size_t size() const { return bytes_.size() / 2; }
    bool empty() const { return size() == 0; }
    char16_t operator[](std::size_t i) const {
        return static_cast<char16_t>(bytes_[2 * i] | bytes_[2 * i + 1] << 8);
    }

private:
    std::span<const unsigned char> bytes_;
};

/// A resource's type or name: a number, or a text where there is none.
struct ResourceName {
    std::optional<std::uint16_t> number;
    ResourceText text;
};

/// One record. `data` and the texts point into the file.
struct ResourceRecord {
    ResourceName type;
    ResourceName name;
    std::span<const unsigned char> data;
};

/// A view of a compiled resource file in memory, which must outlive it and all that is found in it.
/// Reading takes no memory. Nothing outside the given
/// bytes is ever read: a file that is cut off or damaged ends, for the reader, before the first
/// record that does not fit.
class DSSDK_API ResourceFile {
public:
    explicit ResourceFile(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    /// The first record with this type and number.
    std::optional<ResourceRecord> find(ResourceType type, std::uint16_t number) const;

    /// The string with this identifier, as it is stored; none where the file has no such string.
    /// An identifier without a string inside a block of others has an empty one, which counts as
    /// none.
    std::optional<ResourceText> string(std::uint16_t id) const;

private:
    std::span<const unsigned char> bytes_;
};

}  // namespace ruvex
