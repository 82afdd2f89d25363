// The looks that come with the program, as files.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "looks/look_library.h"
#include "parameters/parameter_table.h"

namespace ruvex::looks {
namespace {

/// The shipped looks, without any of the user's.
LookLibrary shipped() {
    return readLookLibrary({.shipped = lookFolders().shipped});
}

/// Whether a look sets the parameter: all that make the television, but not the crop, the masks and
/// what no picture shows.
bool belongsToALook(const ParameterRow& row) {
    static const std::set<std::string_view> kOthers = {"Presets...",    "Hide Overlay Controls",
                                                       "Crop Left",     "Crop Right",
                                                       "Crop Bottom",   "Crop Top",
                                                       "X Edge Method", "Y Edge Method",
                                                       "Crop Colour R", "Crop Colour G",
                                                       "Crop Colour B", "Crop Colour A",
                                                       "Blank Cropped", "Display Cropped",
                                                       "Mask Red",      "Mask Green",
                                                       "Mask Blue",     "Mask Alpha"};
    return !kOthers.contains(row.label);
}

TEST(ShippedLooks, CanAllBeRead) {
    const LookLibrary library = shipped();
    for (const LookProblem& problem : library.problems) ADD_FAILURE() << problem.sentence;
    for (const LibraryLook& look : library.looks) {
        EXPECT_EQ(look.warnings.size(), 0u) << look.look.name;
    }
    EXPECT_EQ(std::ranges::count(library.looks, LookGroup::Shipped, &LibraryLook::group), 23);
}

TEST(ShippedLooks, AreWholeLooksThatSayWhatTheyAreFor) {
    std::size_t parameters = 0;
    for (const ParameterRow& row : parameterTable()) parameters += belongsToALook(row) ? 1 : 0;
    for (const auto& [group, look, file, warnings] : shipped().looks) {
        if (group != LookGroup::Shipped) continue;
        EXPECT_NE(look.description, "") << look.name;
        // Clean has no lengths of its own; those that are set over it are pixels of the clip.
        const bool sized = look.name != "Clean";
        EXPECT_EQ(look.projectSize, sized ? std::optional(ProjectSize{960, 540}) : std::nullopt)
            << look.name;
        EXPECT_EQ(look.changes.size(), parameters) << look.name;
        for (const ParameterChange& change : look.changes) {
            EXPECT_TRUE(belongsToALook(rowOf(change))) << look.name << ": " << rowOf(change).label;
        }
        // wet-street.json holds "Wet Street".
        std::string stem = file.stem().string();
        std::string name = look.name;
        std::ranges::replace(name, ' ', '-');
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
        EXPECT_EQ(stem, name);
    }
}

}  // namespace
}  // namespace ruvex::looks
