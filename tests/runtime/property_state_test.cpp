#include "runtime/property_state.h"

#include <gtest/gtest.h>
#include <limits>

#include "runtime/error.h"
#include "tests/runtime/edited_object.h"

namespace ruvex::runtime::test {
namespace {

constexpr GUID kNoProperty = guidFromText("77A1C001-0000-4000-8000-0000000000FE");

TEST(PropertyState, HoldsTheValueBehindAnAnimation) {
    const auto object = makeEditedObject();
    const VARIANT value = DSVariantFromReal(7.5);
    const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0, DSKeyMode::Hold}};
    ASSERT_EQ(object->SetValue(kDelayId, 0.0, &value), S_OK);
    ASSERT_EQ(object->SetKeys(kDelayId, keys, 2), S_OK);
    const PropertyState state = readState(*object, kDelayId);
    EXPECT_EQ(state.id, kDelayId);
    EXPECT_EQ(state.plain.vt, VT_R8);
    EXPECT_EQ(state.plain.dblVal, 7.5);
    EXPECT_EQ(state.keys, (std::vector<DSKey>{keys[0], keys[1]}));
    EXPECT_THROW(readState(*object, kNoProperty), StatusError);
}

TEST(PropertyState, ComparesBits) {
    const PropertyState state{kDelayId, DSVariantFromReal(0.0), {{0.0, 1.0}}};
    EXPECT_TRUE(sameBits(state, state));
    PropertyState other = state;
    other.plain = DSVariantFromReal(-0.0);
    EXPECT_FALSE(sameBits(state, other));
    other = state;
    other.keys[0].time = -0.0;
    EXPECT_FALSE(sameBits(state, other));
    other = state;
    other.keys[0].mode = DSKeyMode::Hold;
    EXPECT_FALSE(sameBits(state, other));
    other = state;
    other.keys.clear();
    EXPECT_FALSE(sameBits(state, other));
    other = state;
    other.id = kLiftId;
    EXPECT_FALSE(sameBits(state, other));
    const PropertyState whole{kLiftId, DSVariantFromLong(1), {}};
    other = whole;
    EXPECT_TRUE(sameBits(whole, other));
    other.plain = DSVariantFromBool(true);
    EXPECT_FALSE(sameBits(whole, other));
    other.plain = DSVariantFromLong(2);
    EXPECT_FALSE(sameBits(whole, other));
}

TEST(PropertyState, LeavesOutWhatOnlyTheUserInterfaceReads) {
    CDSParamDef definition{};
    definition.capabilities = DSCAPS_USER_INTERFACE;
    EXPECT_FALSE(isStored(definition));
    definition.capabilities = DSCAPS_PLAIN;
    EXPECT_TRUE(isStored(definition));
    definition.capabilities = DSCAPS_ANIMATABLE;
    EXPECT_TRUE(isStored(definition));
}

TEST(PropertyState, RandomStatesAreReadBackBitForBit) {
    std::mt19937 random(1);
    const auto object = makeEditedObject();
    for (int round = 0; round < 2000; ++round) {
        const States written = {
            {kDelayId, DSVariantFromReal(randomReal(random)), randomKeys(random, 5)},
            {kLiftId, DSVariantFromLong(static_cast<LONG>(random())), {}},
            {kInvertId, DSVariantFromBool(random() % 2 == 0), {}}};
        ChangeCounter changes(*object);
        writeStates(*object, written);
        ASSERT_TRUE(sameStates(readStates(*object), written)) << "round " << round;
        ASSERT_EQ(changes.all, 1);
        ASSERT_EQ(changes.single, 0);
    }
}

TEST(PropertyState, ARefusedStateChangesNothing) {
    const auto object = makeEditedObject();
    const States before = readStates(*object);
    const States wrong = {{kLiftId, DSVariantFromLong(3), {}},
                          {kDelayId, DSVariantFromLong(3), {}}};
    EXPECT_THROW(writeStates(*object, wrong), StatusError);
    EXPECT_TRUE(sameStates(readStates(*object), before));
}

}  // namespace
}  // namespace ruvex::runtime::test
