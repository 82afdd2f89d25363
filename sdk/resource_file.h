// Reading a compiled resource file (.res): its records, and the strings among them.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "sdk/export.h"

namespace ruvex {

/// The resource types that are given as numbers.
enum class ResourceType : std::uint16_t { Bitmap = 2, Dialog = 5, String = 6 };

/// A resource's type or name: a number, or a text where there is none.
struct ResourceName {
    std::optional<std::uint16_t> number;
    std::u16string text;
};

/// One record. `data` points into the file.
struct ResourceRecord {
    ResourceName type;
    ResourceName name;
    std::span<const unsigned char> data;
};

/// A view of a compiled resource file in memory, which must outlive it. Nothing outside the given
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
    std::optional<std::u16string> string(std::uint16_t id) const;

private:
    std::span<const unsigned char> bytes_;
};

}  // namespace ruvex
