#include "jobs/field_region.h"

#include <gtest/gtest.h>

namespace ruvex::jobs {
namespace {

using media::Field;

/// The rows of a region one by one.
TEST(FieldRegion, HasTheRowsThatAreInBoth) {
    for (int height = 2; height < 9; ++height) {
        for (int y = 0; y < height; ++y) {
            for (int end = y + 1; end <= height; ++end) {
                for (const Field field : {Field::Top, Field::Bottom}) {
                    const auto part = fieldRegion(Region{1, y, 2, end - y}, height, field);
                    ASSERT_TRUE(part);
                    for (int row = 0; row < media::fieldHeight(height, field); ++row) {
                        const int whole = media::frameRowOf(row, height, field);
                        EXPECT_EQ(row >= part->y && row < part->y + part->height,
                                  whole >= y && whole < end);
                    }
                    EXPECT_EQ(part->x, 1);
                    EXPECT_EQ(part->width, 2);
                }
            }
        }
    }
    EXPECT_FALSE(fieldRegion(std::nullopt, 5, Field::Top));
}

}  // namespace
}  // namespace ruvex::jobs
