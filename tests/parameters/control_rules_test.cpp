#include "parameters/control_rules.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <utility>
#include <vector>

#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

using Id = ParameterId;

const std::set<Id> kGunControls = {Id::TvBrightnessRed, Id::TvBrightnessGreen, Id::TvBrightnessBlue,
                                   Id::GunAlignRedX,    Id::GunAlignRedY,      Id::GunAlignGreenX,
                                   Id::GunAlignGreenY,  Id::GunAlignBlueX,     Id::GunAlignBlueY};
const std::set<Id> kTintControls = {Id::TintColourR, Id::TintColourG, Id::TintColourB};
const std::set<Id> kLensControls = {Id::FishEyeRadius, Id::FishEyePower, Id::Filter};

std::set<Id> together(std::set<Id> all, const std::set<Id>& more) {
    all.insert(more.begin(), more.end());
    return all;
}

/// Every parameter's default, with some parameters set otherwise.
struct Values {
    explicit Values(std::vector<std::pair<Id, double>> changes) {
        for (std::size_t i = 0; i < kParameterCount; ++i) {
            values[i] = parameterTable()[i].defaultValue;
        }
        for (const auto& [id, value] : changes) values[static_cast<std::size_t>(id)] = value;
    }

    std::set<Id> hidden() const {
        return where([&](Id id) { return !isControlShown(id, values); });
    }
    std::set<Id> disabled() const {
        return where([&](Id id) { return !isControlEnabled(id, values); });
    }
    static std::set<Id> where(const auto& isTrue) {
        std::set<Id> found;
        for (const ParameterRow& row : parameterTable()) {
            if (isTrue(row.id)) found.insert(row.id);
        }
        return found;
    }

    std::array<double, kParameterCount> values{};
};

TEST(ControlRules, AColourTelevisionHasNoTint) {
    const Values values({{Id::FishEye, 1}});
    EXPECT_EQ(values.hidden(), kTintControls);
    EXPECT_EQ(values.disabled(), std::set<Id>());
}

TEST(ControlRules, AGreyTelevisionHasNeitherTintNorColourNorGuns) {
    const Values values({{Id::TvType, 1}, {Id::FishEye, 1}});
    EXPECT_EQ(values.hidden(), together(kTintControls, {Id::TvColour}));
    EXPECT_EQ(values.disabled(),
              together(kGunControls, {Id::ColourDegradeMax, Id::ColourThreshold}));
}

TEST(ControlRules, ATintedTelevisionHasATintAndNoColour) {
    const Values values({{Id::TvType, 2}, {Id::FishEye, 1}});
    EXPECT_EQ(values.hidden(), std::set<Id>{Id::TvColour});
    EXPECT_EQ(values.disabled(),
              together(kGunControls, {Id::ColourDegradeMax, Id::ColourThreshold}));
}

TEST(ControlRules, AnUnknownTelevisionHidesBoth) {
    for (const double type : {-1.0, 3.0}) {
        EXPECT_EQ(Values({{Id::TvType, type}}).hidden(), together(kTintControls, {Id::TvColour}));
    }
}

TEST(ControlRules, ThePeriodBelongsToRandomShash) {
    for (int type = 0; type < 5; ++type) {
        const Values values({{Id::ShashType, type}, {Id::FishEye, 1}});
        EXPECT_EQ(values.disabled(), std::set<Id>{Id::ShashPeriod}) << type;
    }
}

TEST(ControlRules, TheLensBelongsToTheFishEye) {
    EXPECT_EQ(Values({{Id::FishEye, 0}}).disabled(), kLensControls);
    EXPECT_TRUE(Values({{Id::FishEye, 1}}).disabled().empty());
    EXPECT_TRUE(Values({{Id::FishEye, -1}}).disabled().empty());
}

TEST(ControlRules, AreSixRowsOnFivePages) {
    std::multiset<ParameterPage> pages;
    for (const ControlRule& rule : controlRules()) pages.insert(rule.page);
    using enum ParameterPage;
    EXPECT_EQ(pages, (std::multiset<ParameterPage>{Main, Main, Guns, Breakup1, Shash, Effects}));
}

TEST(ControlRules, ConcernParametersOfTheirPage) {
    for (const ControlRule& rule : controlRules()) {
        for (const Id id : rule.parameters) EXPECT_EQ(row(id).page, rule.page) << row(id).label;
        EXPECT_FALSE(isReal(row(rule.decidedBy).kind));
    }
}

TEST(ControlRules, NoRuleConcernsADecidingParameter) {
    for (const ControlRule& rule : controlRules()) {
        for (const ControlRule& other : controlRules()) {
            EXPECT_EQ(std::ranges::count(other.parameters, rule.decidedBy), 0);
        }
    }
}

}  // namespace
}  // namespace ruvex
