#include "sdk/controls/colour_chip.h"

#include <gtest/gtest.h>

#include "sdk/com/com_ptr.h"

namespace ruvex {
namespace {

using Colour = CDSColourChip::Colour;

class ColourChip : public ::testing::Test {
protected:
    ColourChip() {
        chip->listen([this] { ++picked; });
        chip->observe([this] { ++observed; });
    }

    ComPtr<CDSColourChip> chip = ComPtr<CDSColourChip>::attach(new CDSColourChip);
    int picked = 0;
    int observed = 0;
};

TEST_F(ColourChip, BeginsOpaqueBlack) {
    EXPECT_EQ(chip->colour(), (Colour{0, 0, 0, 255}));
}

TEST_F(ColourChip, KeepsTheColourThatTheProgramSets) {
    EXPECT_EQ(chip->SetColour(61, 164, 76, 255), S_OK);
    LONG colour[4] = {};
    EXPECT_EQ(chip->GetColour(&colour[0], &colour[1], &colour[2], &colour[3]), S_OK);
    EXPECT_EQ(colour[0], 61);
    EXPECT_EQ(colour[1], 164);
    EXPECT_EQ(colour[2], 76);
    EXPECT_EQ(colour[3], 255);
    EXPECT_EQ(observed, 1);
    chip->SetColour(61, 164, 76, 255);
    EXPECT_EQ(observed, 1) << "nothing has changed";
    EXPECT_EQ(picked, 0) << "the program notifies nobody";
}

TEST_F(ColourChip, HoldsComponentsToTheirRange) {
    chip->SetColour(-1, 256, 255, -2147483647);
    EXPECT_EQ(chip->colour(), (Colour{0, 255, 255, 0}));
    chip->pick({1000, -1000, 7, 8});
    EXPECT_EQ(chip->colour(), (Colour{255, 0, 7, 8}));
}

TEST_F(ColourChip, GivesNothingToANullPointer) {
    LONG red = 1, green = 2, blue = 3, alpha = 4;
    EXPECT_EQ(chip->GetColour(nullptr, &green, &blue, &alpha), E_POINTER);
    EXPECT_EQ(chip->GetColour(&red, nullptr, &blue, &alpha), E_POINTER);
    EXPECT_EQ(chip->GetColour(&red, &green, nullptr, &alpha), E_POINTER);
    EXPECT_EQ(chip->GetColour(&red, &green, &blue, nullptr), E_POINTER);
    EXPECT_EQ(red + green + blue + alpha, 10) << "all as before";
}

TEST_F(ColourChip, APickNotifiesAlsoForTheSameColour) {
    chip->pick({1, 2, 3, 4});
    EXPECT_EQ(picked, 1);
    EXPECT_EQ(observed, 1);
    chip->pick({1, 2, 3, 4});
    EXPECT_EQ(picked, 2);
    EXPECT_EQ(observed, 1);
}

TEST_F(ColourChip, AListenerMayReleaseTheChip) {
    chip->listen([this] {
        chip->listen(nullptr);
        chip->observe(nullptr);
        chip.reset();
    });
    CDSColourChip* const present = chip.get();
    present->pick({1, 2, 3, 4});
    EXPECT_FALSE(chip);
}

}  // namespace
}  // namespace ruvex
