#include "parameters/artefacts.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>

#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

// Every parameter whose label ends in "Threshold" belongs to one artefact.
TEST(Artefacts, EveryThresholdHasOne) {
    std::set<ParameterId> thresholds;
    for (const ParameterRow& row : parameterTable()) {
        if (row.label.ends_with("Threshold")) thresholds.insert(row.id);
    }
    std::set<ParameterId> found;
    for (const Artefact& artefact : artefacts()) found.insert(artefact.threshold);
    EXPECT_EQ(found, thresholds);
    EXPECT_EQ(found.size(), artefacts().size());
}

TEST(Artefacts, EachHasAMaximumOfItsOwnThatIsNoThreshold) {
    std::set<ParameterId> maxima;
    for (const Artefact& artefact : artefacts()) {
        EXPECT_TRUE(isReal(row(artefact.maximum).kind)) << artefact.id;
        EXPECT_TRUE(row(artefact.maximum).label.ends_with("Max")) << artefact.id;
        maxima.insert(artefact.maximum);
    }
    EXPECT_EQ(maxima.size(), artefacts().size());
}

TEST(Artefacts, MaximumAndThresholdStandOnOnePage) {
    for (const Artefact& artefact : artefacts()) {
        EXPECT_EQ(row(artefact.maximum).page, row(artefact.threshold).page) << artefact.id;
    }
}

// The names are those that programs read; CSV columns and files carry them.
TEST(Artefacts, NamesAreTheReleasedOnes) {
    std::string names;
    for (const Artefact& artefact : artefacts()) {
        names += std::string(artefact.id) + ' ' + std::string(artefact.amountName) + ' ' +
                 std::string(unitText(artefact.unit)) + '\n';
    }
    EXPECT_EQ(names,
              "colour colour_degrade \n"
              "ghosts ghost_distance px\n"
              "edge edge_distortion px\n"
              "snow snow \n"
              "shash shash \n"
              "lines line_speed px/s\n"
              "offset vertical_offset px\n"
              "roll roll_speed px/s\n");
}

// Each amount has a member of its own, in the order in which the record holds them.
TEST(Artefacts, AmountsAreTheMembersOfTheRecordInTheirOrder) {
    const FrameValues values{};
    const double* previous = nullptr;
    for (const Artefact& artefact : artefacts()) {
        const double* const member = &(values.*artefact.amount);
        EXPECT_EQ(member, previous ? previous + 1 : &values.colourDegrade) << artefact.id;
        previous = member;
    }
    EXPECT_EQ(previous, &values.rollSpeed);
}

TEST(Artefacts, PlotColoursDiffer) {
    std::set<std::string_view> colours;
    for (const Artefact& artefact : artefacts()) {
        EXPECT_EQ(artefact.plotColour.size(), 7u);
        EXPECT_EQ(artefact.plotColour.front(), '#');
        EXPECT_EQ(artefact.plotColour.find_first_not_of("0123456789abcdef", 1), std::string::npos);
        colours.insert(artefact.plotColour);
    }
    EXPECT_EQ(colours.size(), artefacts().size());
}

TEST(Artefacts, AreFoundByTheirIdentifiers) {
    for (const Artefact& artefact : artefacts()) EXPECT_EQ(findArtefact(artefact.id), &artefact);
    EXPECT_EQ(findArtefact("Snow"), nullptr) << "identifiers are lower case";
    EXPECT_EQ(findArtefact(""), nullptr);
}

}  // namespace
}  // namespace ruvex
