#include "media/stills/still_structure.h"

#include <gtest/gtest.h>

namespace ruvex::media {
namespace {

std::string word(std::uint32_t value) {
    std::string text;
    for (int shift = 0; shift < 32; shift += 8) text += static_cast<char>(value >> shift);
    return text;
}

std::string attribute(const std::string& name, const std::string& value) {
    return name + '\0' + "type" + '\0' + word(static_cast<std::uint32_t>(value.size())) + value;
}

/// The header of a tiled EXR file, up to the offset table.
std::string tiledExr(std::int32_t low, std::int32_t high, std::uint32_t tile) {
    const std::string from = word(static_cast<std::uint32_t>(low));
    const std::string to = word(static_cast<std::uint32_t>(high));
    return word(0x01312F76) + word(0x202) + attribute("dataWindow", from + from + to + to) +
           attribute("tiles", word(tile) + word(tile) + '\0') + '\0';
}

std::string faultOf(const std::string& file) {
    return stillFault(FileKind::Exr, std::as_bytes(std::span(file)));
}

TEST(StillStructure, TilesOfAnExrFileAreThere) {
    const std::string head = tiledExr(0, 3, 4);
    const auto place = static_cast<std::uint32_t>(head.size() + 8);
    const std::string tile = word(0) + word(0) + word(0) + word(0) + word(2) + "xy";
    const std::string whole = head + word(place) + word(0) + tile;
    EXPECT_EQ(faultOf(whole), "");
    for (std::size_t length = 4; length < whole.size(); ++length) {
        EXPECT_NE(faultOf(whole.substr(0, length)), "") << length;
    }
}

// The number of tiles overflows 64 bits.
TEST(StillStructure, AnExrFileOfAllCoordinatesIsCutOff) {
    EXPECT_NE(faultOf(tiledExr(INT32_MIN, INT32_MAX, 1)), "");
    EXPECT_NE(faultOf(tiledExr(INT32_MIN, INT32_MAX, 1) + std::string(64, '\0')), "");
}

TEST(StillStructure, AnExrFileOfNoPixelsIsCutOff) {
    EXPECT_NE(faultOf(tiledExr(0, -1, 1) + std::string(64, '\0')), "");
    EXPECT_NE(faultOf(tiledExr(0, 3, 0) + std::string(64, '\0')), "");
}

}  // namespace
}  // namespace ruvex::media
