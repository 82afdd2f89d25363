#include "cli/value_column.h"

#include <bit>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

#include "cli/text_table.h"

namespace ruvex::cli {
namespace {

const ValueColumn& column(std::string_view name) {
    for (const ValueColumn& each : valueColumns()) {
        if (each.name == name) return each;
    }
    throw std::runtime_error("no column");
}

TEST(TextTable, AlignsToTheRight) {
    EXPECT_EQ(alignedTable({{"a", "long", ""}, {"100", "2", "3"}}), "  a  long\n100     2  3\n");
    EXPECT_EQ(alignedTable({}), "");
}

TEST(ValueColumn, ExactTextIsTheShortest) {
    FrameValues values{};
    values.seconds = 0.1;
    values.level = 0.1f;
    values.frame = -7;
    EXPECT_EQ(exactText(column("time"), values), "0.1");
    EXPECT_EQ(exactText(column("level"), values), "0.1");
    EXPECT_EQ(exactText(column("frame"), values), "-7");
}

TEST(ValueColumn, ExactTextReadsBackAsTheSameBits) {
    std::mt19937_64 random(9);
    for (int i = 0; i < 2000; ++i) {
        FrameValues values{};
        values.seconds = std::bit_cast<double>(random());
        values.level = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (values.seconds == values.seconds) {
            EXPECT_EQ(std::strtod(exactText(column("time"), values).c_str(), nullptr),
                      values.seconds);
        }
        if (values.level == values.level) {
            EXPECT_EQ(std::strtof(exactText(column("level"), values).c_str(), nullptr),
                      values.level);
        }
    }
}

TEST(ValueColumn, RoundedTextHasTheColumnsDecimalsAndNoMinusBeforeZero) {
    FrameValues values{};
    values.snow = -0.00004;
    values.ghostDistance = -12.345;
    values.verticalSum = -3;
    EXPECT_EQ(roundedText(column("snow"), values), "0.0000");
    EXPECT_EQ(roundedText(column("ghost_distance"), values), "-12.35");
    EXPECT_EQ(roundedText(column("vertical_sum"), values), "-3");
    values.ghostDistance = 1e300;
    EXPECT_EQ(roundedText(column("ghost_distance"), values).size(), 304u);
}

TEST(ValueColumn, TablesHaveALineForEachFrame) {
    const std::vector<FrameValues> series(3);
    const auto lines = [](const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    };
    EXPECT_EQ(lines(csvOf(series)), 4);
    EXPECT_EQ(lines(tableOf(series)), 5);
}

}  // namespace
}  // namespace ruvex::cli
