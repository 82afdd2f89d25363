// How the effect wants to be run: the record that it fills in, for each kind and each capability.

#include <array>
#include <gtest/gtest.h>

#include "tests/module/made_effect.h"

namespace ruvex::test {
namespace {

using Fields = std::array<ULONG, 10>;

/// All that the effect fills in, in order: the reserved field, fields 2 to 9, the flags.
Fields fieldsOf(const DSIMAGEEFFECTINFO& info) {
    return {info.reserved, info.field2, info.field3, info.field4, info.field5,
            info.field6,   info.field7, info.field8, info.field9, info.flags};
}

Fields fieldsFor(const GUID& family, std::uint32_t capabilities, std::int32_t fieldHandling = 0) {
    const auto effect = makeEffect();
    stateOf(effect).capabilityFlags = capabilities;
    stateOf(effect).fieldHandling = FieldHandling{fieldHandling};
    return fieldsOf(describe(effect, family));
}

TEST(ImageEffectRecord, OfEachKind) {
    const auto fields = [](const GUID& family) { return fieldsOf(describe(makeEffect(), family)); };
    const Fields filter = {0, 0, 8, 1, 0, 0, 0, 0, 0, 0x31A};
    EXPECT_EQ(fields(DSFAMILY_Filter), filter);
    EXPECT_EQ(fields(DSFAMILY_Kind2), filter);
    EXPECT_EQ(fields(DSFAMILY_Kind7), filter);
    EXPECT_EQ(fields(DSFAMILY_WithoutInput), (Fields{0, 0, 2, 1, 0, 0, 0, 0, 0, 0x31A}));
    EXPECT_EQ(fields(DSFAMILY_Paint), (Fields{0, 96, 8, 1, 0, 1, 0, 1, 0, 0x31A}));
    EXPECT_EQ(fields(DSFAMILY_Transition), (Fields{0, 0, 2, 1, 1, 0, 0, 0, 0, 0x31A}));
}

TEST(ImageEffectRecord, WithoutCapabilities) {
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 0), (Fields{0, 0, 2, 0, 0, 0, 0, 0, 0, 0x30A}));
    EXPECT_EQ(fieldsFor(DSFAMILY_WithoutInput, 0), (Fields{0, 0, 2, 0, 0, 0, 0, 0, 0, 0x30A}));
    EXPECT_EQ(fieldsFor(DSFAMILY_Paint, 0), (Fields{0, 96, 8, 0, 0, 1, 0, 1, 0, 0x30A}));
    EXPECT_EQ(fieldsFor(DSFAMILY_Transition, 0), (Fields{0, 0, 2, 0, 1, 0, 0, 0, 0, 0x31A}));
}

TEST(ImageEffectRecord, EachCapabilityHasItsField) {
    const Fields none = fieldsFor(DSFAMILY_Filter, 0);
    const auto with = [&](std::size_t field, ULONG value) {
        Fields fields = none;
        fields[field] = value;
        return fields;
    };
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 0), with(3, 1));
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 1), none)
        << "the flags have it from field handling 0";
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 2), with(2, 8));
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 3), none);
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 4), with(9, 0x31A));
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 5), with(4, 1));
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 6), none);
}

TEST(ImageEffectRecord, FieldHandlingTakesAFlagAway) {
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 0, 1).back(), 0x302u);
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 0, 2).back(), 0x302u);
    EXPECT_EQ(fieldsFor(DSFAMILY_Filter, 1u << 1, 1).back(), 0x30Au)
        << "unless bit 1 says otherwise";
    EXPECT_EQ(fieldsFor(DSFAMILY_Transition, 0, 1).back(), 0x312u);
}

TEST(ImageEffectRecord, BitFourIsKeptWithAFlagOfItsOwn) {
    const auto effect = makeEffect();
    stateOf(effect).capabilityFlags = 0;
    describe(effect, DSFAMILY_Filter);
    EXPECT_EQ(stateOf(effect).capabilityFlags, 0u);
    describe(effect, DSFAMILY_Transition);
    EXPECT_EQ(stateOf(effect).capabilityFlags, 1u << 4);
    EXPECT_EQ(describe(effect, DSFAMILY_Filter).flags, 0x31Au) << "what a transition left";
}

}  // namespace
}  // namespace ruvex::test
