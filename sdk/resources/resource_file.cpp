#include "sdk/resources/resource_file.h"

#include "sdk/resources/byte_reader.h"
#include "sdk/resources/resource_name.h"

namespace ruvex {
namespace {

/// Bytes of the fields after type and name: data version, memory flags, language, version,
/// characteristics.
constexpr std::size_t kHeaderTail = 16;
/// String tables are stored in blocks of 16 strings; block n begins with identifier (n - 1) * 16.
constexpr std::uint16_t kStringsPerBlock = 16;

/// Reads the record at the reader's position. No value at the end of the file, and if the sizes in
/// the record exceed the file.
std::optional<ResourceRecord> readRecord(ByteReader& reader) {
    const std::size_t start = reader.position();
    const std::uint32_t dataSize = reader.u32();
    const std::uint32_t headerSize = reader.u32();
    const std::size_t read = reader.position() - start;
    if (reader.failed() || headerSize < read) return std::nullopt;

    ByteReader header(reader.take(headerSize - read));
    ResourceRecord record;
    record.type = readName(header);
    record.name = readName(header);
    header.alignTo4();
    header.take(kHeaderTail);
    record.data = reader.take(dataSize);
    if (header.failed() || reader.failed()) return std::nullopt;
    reader.alignTo4();
    return record;
}

ResourceText readString(ByteReader& reader) {
    const std::size_t length = reader.u16();
    return ResourceText(reader.take(2 * length));
}

}  // namespace

std::optional<ResourceRecord> ResourceFile::find(ResourceType type, std::uint16_t number) const {
    ByteReader reader(bytes_);
    while (const auto record = readRecord(reader)) {
        const bool wanted = record->type.number == static_cast<std::uint16_t>(type) &&
                            record->name.number == number;
        if (wanted) return record;
    }
    return std::nullopt;
}

std::optional<ResourceText> ResourceFile::string(std::uint16_t id) const {
    const auto number = static_cast<std::uint16_t>(id / kStringsPerBlock + 1);
    const auto block = find(ResourceType::String, number);
    if (!block) return std::nullopt;
    ByteReader reader(block->data);
    for (std::uint16_t i = 0; i < id % kStringsPerBlock; ++i) readString(reader);
    const ResourceText text = readString(reader);
    if (reader.failed() || text.empty()) return std::nullopt;
    return text;
}

}  // namespace ruvex
