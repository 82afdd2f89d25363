#include "sdk/properties/properties.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <vector>

#include "sdk/com/com_object.h"
#include "tests/support/copy_effect.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknownId = guidFromText("77A1C001-0000-4000-8000-0000000000FF");

/// Records its notifications. It lives on the stack, so its reference count shows only the
/// references that others hold.
class Recorder final : public IDSPropertyObserver {
public:
    HRESULT QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown* object,
                            const DSPARAMS* params, unsigned short classification) override {
        told.push_back(id);
        lastValue = value ? std::optional(*value) : std::nullopt;
        lastObject = object;
        lastParams = params;
        lastClassification = classification;
        return S_OK;
    }

    std::vector<GUID> told;
    std::optional<VARIANT> lastValue;
    IUnknown* lastObject = nullptr;
    const DSPARAMS* lastParams = nullptr;
    unsigned lastClassification = 0;
    ULONG references = 0;
};

class Properties : public ::testing::Test {
protected:
    double real(const GUID& id, double seconds = 0.0) {
        VARIANT value{};
        EXPECT_EQ(effect->GetValue(id, seconds, &value), S_OK);
        EXPECT_EQ(value.vt, VT_R8);
        return value.dblVal;
    }

    HRESULT set(const GUID& id, const VARIANT& value, double seconds = 0.0) {
        return effect->SetValue(id, seconds, &value);
    }

    HRESULT setStates(const std::vector<DSPropertyState>& states) {
        return effect->SetStates(states.data(), static_cast<ULONG>(states.size()));
    }

    LONG whole(const GUID& id) {
        VARIANT value{};
        EXPECT_EQ(effect->GetPlainValue(id, &value), S_OK);
        return value.lVal;
    }

    HRESULT animate(const GUID& id, const std::vector<DSKey>& keys) {
        return effect->SetKeys(id, keys.data(), static_cast<ULONG>(keys.size()));
    }

    ComPtr<CopyEffect> effect = ComPtr<CopyEffect>::attach(new CopyEffect);
};

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST_F(Properties, AreListedInTheOrderOfDeclaration) {
    ULONG count = 0;
    ASSERT_EQ(effect->GetPropertyCount(&count), S_OK);
    ASSERT_EQ(count, 3u);
    const GUID expected[] = {kDelayId, kLiftId, kInvertId};
    for (ULONG i = 0; i < count; ++i) {
        const CDSParamDef* definition = nullptr;
        ASSERT_EQ(effect->GetPropertyDef(i, &definition), S_OK);
        EXPECT_EQ(definition->id, expected[i]);
        EXPECT_EQ(definition->animatable(), i == 0);
    }
    const CDSParamDef* none = nullptr;
    EXPECT_EQ(effect->GetPropertyDef(count, &none), E_INVALIDARG);
    EXPECT_EQ(none, nullptr);
}

TEST_F(Properties, PlainValuesAreTheMembers) {
    EXPECT_EQ(set(kDelayId, DSVariantFromReal(0.5)), S_OK);
    EXPECT_EQ(effect->delay(), 0.5);
    EXPECT_EQ(real(kDelayId, -3.0), 0.5);
    EXPECT_EQ(real(kDelayId, 3.0), 0.5);

    VARIANT value{};
    EXPECT_EQ(set(kLiftId, DSVariantFromLong(-12)), S_OK);
    EXPECT_EQ(effect->GetValue(kLiftId, 0.0, &value), S_OK);
    EXPECT_EQ(value.vt, VT_I4);
    EXPECT_EQ(value.lVal, -12);

    EXPECT_EQ(set(kInvertId, DSVariantFromBool(true)), S_OK);
    EXPECT_EQ(effect->GetValue(kInvertId, 0.0, &value), S_OK);
    EXPECT_EQ(value.vt, VT_BOOL);
    EXPECT_EQ(value.lVal, 1);
}

TEST_F(Properties, RefuseUnknownIdentifiersAndOtherTypes) {
    VARIANT value{};
    EXPECT_EQ(effect->GetValue(kUnknownId, 0.0, &value), E_INVALIDARG);
    EXPECT_EQ(set(kUnknownId, DSVariantFromReal(1.0)), E_INVALIDARG);
    EXPECT_EQ(set(kDelayId, DSVariantFromLong(1)), E_INVALIDARG);
    EXPECT_EQ(set(kLiftId, DSVariantFromReal(1.0)), E_INVALIDARG);
    EXPECT_EQ(set(kDelayId, DSVariantFromReal(kNotANumber)), E_INVALIDARG);
    EXPECT_EQ(effect->SetValue(kDelayId, 0.0, nullptr), E_POINTER);
    EXPECT_EQ(effect->GetValue(kDelayId, 0.0, nullptr), E_POINTER);
    EXPECT_EQ(effect->delay(), 0.0);
}

TEST_F(Properties, AnimatedRealsFollowTheirKeys) {
    set(kDelayId, DSVariantFromReal(99.0));
    ASSERT_EQ(animate(kDelayId, {{2.0, 4.0}, {0.0, 0.0}}), S_OK);
    EXPECT_EQ(real(kDelayId, -1.0), 0.0);
    EXPECT_EQ(real(kDelayId, 1.0), 2.0);
    EXPECT_EQ(real(kDelayId, 9.0), 4.0);
    EXPECT_EQ(effect->GetValueDirect(kDelayId, 99.0, 1.0), 2.0);
    EXPECT_EQ(effect->delay(), 99.0);
}

TEST_F(Properties, ClearedKeysGiveThePlainValueBack) {
    set(kDelayId, DSVariantFromReal(99.0));
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_EQ(effect->ClearKeys(kDelayId), S_OK);
    EXPECT_EQ(real(kDelayId, 0.0), 99.0);
    EXPECT_EQ(effect->FindAnimation(kDelayId), nullptr);
    EXPECT_EQ(effect->ClearKeys(kDelayId), S_FALSE);
    EXPECT_EQ(effect->ClearKeys(kUnknownId), E_INVALIDARG);
}

TEST_F(Properties, AnEmptyListOfKeysEndsTheAnimation) {
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_EQ(animate(kDelayId, {}), S_OK);
    EXPECT_EQ(effect->FindAnimation(kDelayId), nullptr);
}

TEST_F(Properties, OnlyRealsAreAnimated) {
    EXPECT_EQ(animate(kLiftId, {{0.0, 1.0}}), E_INVALIDARG);
    EXPECT_EQ(animate(kInvertId, {{0.0, 1.0}}), E_INVALIDARG);
    EXPECT_EQ(animate(kUnknownId, {{0.0, 1.0}}), E_INVALIDARG);
}

TEST_F(Properties, RefusedKeysLeaveTheOldOnes) {
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_EQ(animate(kDelayId, {{0.0, 2.0}, {1.0, kNotANumber}}), E_INVALIDARG);
    EXPECT_EQ(effect->SetKeys(kDelayId, nullptr, 1), E_POINTER);
    EXPECT_EQ(real(kDelayId), 1.0);
}

TEST_F(Properties, SettingAnAnimatedRealSetsAKey) {
    animate(kDelayId, {{0.0, 0.0}, {2.0, 2.0}});
    EXPECT_EQ(set(kDelayId, DSVariantFromReal(8.0), 1.0), S_OK);
    EXPECT_EQ(set(kDelayId, DSVariantFromReal(4.0), 2.0), S_OK);
    EXPECT_EQ(real(kDelayId, 0.5), 4.0);
    EXPECT_EQ(real(kDelayId, 2.0), 4.0);
    EXPECT_EQ(effect->delay(), 0.0);
    EXPECT_EQ(set(kDelayId, DSVariantFromLong(1), 1.0), E_INVALIDARG);
}

TEST_F(Properties, AKeyThatIsSetTakesTheModeOfItsSegment) {
    constexpr DSKeyMode kHold = DSKeyMode::Hold;
    animate(kDelayId, {{0.0, 1.0, kHold}, {2.0, 2.0}});
    set(kDelayId, DSVariantFromReal(5.0), 0.0);
    set(kDelayId, DSVariantFromReal(6.0), 1.0);
    set(kDelayId, DSVariantFromReal(7.0), -1.0);
    const std::vector<DSKey> wanted = {
        {-1.0, 7.0}, {0.0, 5.0, kHold}, {1.0, 6.0, kHold}, {2.0, 2.0}};
    EXPECT_EQ(effect->FindAnimation(kDelayId)->keys(), wanted);
}

TEST_F(Properties, AnUnknownModeIsRefusedAndChangesNothing) {
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_EQ(animate(kDelayId, {{0.0, 2.0, static_cast<DSKeyMode>(7)}}), E_INVALIDARG);
    EXPECT_EQ(real(kDelayId), 1.0);
}

TEST_F(Properties, KeysAreReadInPieces) {
    animate(kDelayId, {{2.0, 20.0}, {1.0, 10.0}});
    ULONG count = 0;
    EXPECT_EQ(effect->GetKeys(kDelayId, nullptr, 0, &count), S_OK);
    EXPECT_EQ(count, 2u);
    DSKey keys[2] = {{-1.0, -1.0}, {-1.0, -1.0}};
    EXPECT_EQ(effect->GetKeys(kDelayId, keys, 1, &count), S_OK);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(keys[0], (DSKey{1.0, 10.0}));
    EXPECT_EQ(keys[1], (DSKey{-1.0, -1.0}));
    EXPECT_EQ(effect->GetKeys(kLiftId, keys, 2, &count), S_OK);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(effect->GetKeys(kUnknownId, keys, 2, &count), E_INVALIDARG);
    EXPECT_EQ(effect->GetKeys(kDelayId, nullptr, 1, &count), E_POINTER);
}

TEST_F(Properties, CopiedAnimationIsIndependent) {
    animate(kDelayId, {{0.0, 1.0}});
    const auto other = ComPtr<CopyEffect>::attach(new CopyEffect);
    other->CopyAnimation(*effect);
    animate(kDelayId, {{0.0, 5.0}});
    EXPECT_EQ(other->GetValueDirect(kDelayId, 0.0, 0.0), 1.0);
    effect->ClearKeys(kDelayId);
    other->CopyAnimation(*effect);
    EXPECT_EQ(other->FindAnimation(kDelayId), nullptr);
}

TEST_F(Properties, AnAliasIsThePropertyItself) {
    EXPECT_EQ(set(kOldDelayId, DSVariantFromReal(3.0)), S_OK);
    EXPECT_EQ(effect->delay(), 3.0);
    EXPECT_EQ(animate(kOldDelayId, {{0.0, 7.0}}), S_OK);
    EXPECT_EQ(real(kDelayId), 7.0);
    EXPECT_EQ(real(kOldDelayId), 7.0);
    EXPECT_EQ(effect->ClearKeys(kOldDelayId), S_OK);
    EXPECT_EQ(real(kDelayId), 3.0);
    GUID id{};
    EXPECT_EQ(effect->GetAliasedProperty(kOldDelayId, &id), S_OK);
    EXPECT_EQ(id, kDelayId);
    EXPECT_EQ(effect->GetAliasedProperty(kLiftId, &id), S_OK);
    EXPECT_EQ(id, kLiftId);
}

TEST_F(Properties, ObserversAreToldOfEveryChange) {
    Recorder recorder;
    ULONG cookie = 0;
    ASSERT_EQ(effect->Advise(&recorder, &cookie), S_OK);
    EXPECT_EQ(recorder.references, 1u);
    set(kLiftId, DSVariantFromLong(1));
    animate(kDelayId, {{0.0, 1.0}});
    effect->ClearKeys(kDelayId);
    effect->SetDefaults();
    const std::vector<GUID> expected = {kLiftId, kDelayId, kDelayId, GUID_AllProperties};
    EXPECT_EQ(recorder.told, expected);
    EXPECT_EQ(recorder.lastClassification, 32768u);

    EXPECT_EQ(effect->Unadvise(cookie), S_OK);
    EXPECT_EQ(recorder.references, 0u);
    set(kLiftId, DSVariantFromLong(2));
    EXPECT_EQ(recorder.told.size(), 4u);
    EXPECT_EQ(effect->Unadvise(cookie), E_INVALIDARG);
}

/// Takes another observer away, and brings one, when it is told for the first time.
class Meddler final : public ComObject<IDSPropertyObserver> {
public:
    explicit Meddler(CopyEffect& effect) : effect_(effect) {}
    HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        ++told;
        if (told > 1) return S_OK;
        effect_.Unadvise(own);
        effect_.Unadvise(leaving);
        return effect_.Advise(&coming, &cookieOfComing);
    }

    int told = 0;
    ULONG own = 0;
    ULONG leaving = 0;
    ULONG cookieOfComing = 0;
    Recorder coming;

private:
    CopyEffect& effect_;
};

TEST_F(Properties, ObserversMayComeAndGoWhileOneIsTold) {
    Meddler meddler(*effect);
    Recorder leaving, staying;
    ULONG cookie = 0;
    effect->Advise(&meddler, &meddler.own);
    effect->Advise(&leaving, &meddler.leaving);
    effect->Advise(&staying, &cookie);
    set(kLiftId, DSVariantFromLong(1));
    EXPECT_EQ(meddler.told, 1);
    EXPECT_TRUE(leaving.told.empty()) << "who has gone is not told";
    EXPECT_EQ(staying.told.size(), 1u) << "who stays is told once";
    EXPECT_TRUE(meddler.coming.told.empty()) << "who comes has seen the change";
    set(kLiftId, DSVariantFromLong(2));
    EXPECT_EQ(meddler.told, 1);
    EXPECT_EQ(meddler.coming.told.size(), 1u);
    effect->Term();
}

TEST_F(Properties, RefusedChangesAreNotTold) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    set(kLiftId, DSVariantFromReal(1.0));
    animate(kLiftId, {{0.0, 1.0}});
    effect->ClearKeys(kDelayId);
    EXPECT_TRUE(recorder.told.empty());
    effect->Unadvise(cookie);
}

TEST_F(Properties, ANotificationHasTheNewValueOfAPlainProperty) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    set(kLiftId, DSVariantFromLong(-7));
    ASSERT_TRUE(recorder.lastValue);
    EXPECT_EQ(recorder.lastValue->vt, VT_I4);
    EXPECT_EQ(recorder.lastValue->lVal, -7);
    EXPECT_EQ(recorder.lastParams, nullptr);
    EXPECT_EQ(ComPtr<IUnknown>(recorder.lastObject).query<IDSProperties>(),
              ComPtr<IDSProperties>(effect));
    set(kDelayId, DSVariantFromReal(2.5));
    ASSERT_TRUE(recorder.lastValue);
    EXPECT_EQ(recorder.lastValue->dblVal, 2.5);
    effect->Unadvise(cookie);
}

TEST_F(Properties, TheObjectOfANotificationIsTheContainersIUnknown) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    set(kLiftId, DSVariantFromLong(1));
    ComPtr<IUnknown> identity;
    ASSERT_EQ(effect->QueryInterface(IID_IUnknown, identity.putVoid()), S_OK);
    EXPECT_EQ(recorder.lastObject, identity.get());
    effect->Unadvise(cookie);
}

TEST_F(Properties, ANotificationOfKeysOrOfAllPropertiesHasNoValue) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    const auto lastHasValue = [&] {
        const bool has = recorder.lastValue.has_value();
        recorder.lastValue = VARIANT{};
        return has;
    };
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_FALSE(lastHasValue());
    set(kDelayId, DSVariantFromReal(2.0), 1.0);
    EXPECT_FALSE(lastHasValue()) << "the property is animated";
    effect->ClearKeys(kDelayId);
    EXPECT_FALSE(lastHasValue());
    effect->SetDefaults();
    EXPECT_FALSE(lastHasValue());
    EXPECT_EQ(recorder.told.size(), 4u);
    effect->Unadvise(cookie);
}

TEST_F(Properties, AValueOfAllPropertiesIsRefused) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    const VARIANT value = DSVariantFromLong(22);
    EXPECT_EQ(effect->OnPropertyChanged(GUID_AllProperties, 0, &value), E_INVALIDARG);
    EXPECT_TRUE(recorder.told.empty());
    EXPECT_EQ(effect->OnPropertyChanged(kLiftId, 5, &value), S_OK);
    EXPECT_EQ(recorder.lastClassification, 5u);
    effect->Unadvise(cookie);
}

TEST_F(Properties, ABooleanIsReadFromItsLowSixteenBits) {
    const auto written = [&](LONG bits) {
        VARIANT value = DSVariantFromBool(true);
        value.lVal = bits;
        EXPECT_EQ(set(kInvertId, value), S_OK);
        const DSPropertyState state{kInvertId, value, nullptr, 0};
        const LONG plain = whole(kInvertId);
        EXPECT_EQ(set(kInvertId, DSVariantFromBool(plain == 0)), S_OK);
        EXPECT_EQ(setStates({state}), S_OK);
        EXPECT_EQ(whole(kInvertId), plain);
        return plain;
    };
    EXPECT_EQ(written(0x12340000), 0);
    EXPECT_EQ(written(0x0000FFFF), 1);
    EXPECT_EQ(written(-1), 1);
    EXPECT_EQ(written(0), 0);
    EXPECT_EQ(written(0x00008000), 1);
}

/// Releases the object that it observes.
class Releaser final : public ComObject<IDSPropertyObserver> {
public:
    explicit Releaser(ComPtr<CopyEffect>& effect) : effect_(effect) {}
    HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        effect_.reset();
        alive = CopyEffect::liveObjects;
        return S_OK;
    }

    int alive = -1;

private:
    ComPtr<CopyEffect>& effect_;
};

TEST_F(Properties, AnObjectLivesUntilItsNotificationHasEnded) {
    const int others = CopyEffect::liveObjects - 1;
    Releaser releaser(effect);
    Recorder second;
    ULONG cookie = 0;
    effect->Advise(&releaser, &cookie);
    effect->Advise(&second, &cookie);
    set(kLiftId, DSVariantFromLong(1));
    EXPECT_EQ(releaser.alive, others + 1);
    EXPECT_EQ(second.told.size(), 1u);
    EXPECT_EQ(CopyEffect::liveObjects, others);
}

TEST_F(Properties, ThePlainValueIsReadableBehindAnAnimation) {
    set(kDelayId, DSVariantFromReal(99.0));
    animate(kDelayId, {{0.0, 1.0}});
    VARIANT value{};
    EXPECT_EQ(effect->GetPlainValue(kDelayId, &value), S_OK);
    EXPECT_EQ(value.vt, VT_R8);
    EXPECT_EQ(value.dblVal, 99.0);
    EXPECT_EQ(effect->GetPlainValue(kOldDelayId, &value), S_OK);
    EXPECT_EQ(effect->GetPlainValue(kUnknownId, &value), E_INVALIDARG);
    EXPECT_EQ(effect->GetPlainValue(kDelayId, nullptr), E_POINTER);
}

TEST_F(Properties, StatesReplaceValuesAndAnimationsAtOnce) {
    animate(kDelayId, {{0.0, 1.0}, {1.0, 2.0}});
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    const DSKey keys[] = {{3.0, 30.0, DSKeyMode::Smooth}, {2.0, -0.0}};
    ASSERT_EQ(setStates({{kLiftId, DSVariantFromLong(7), nullptr, 0},
                         {kOldDelayId, DSVariantFromReal(-0.0), keys, 2}}),
              S_OK);
    EXPECT_EQ(recorder.told, std::vector<GUID>{GUID_AllProperties});
    EXPECT_FALSE(recorder.lastValue);
    EXPECT_EQ(recorder.lastClassification, 32768u);
    EXPECT_EQ(whole(kLiftId), 7);
    EXPECT_TRUE(std::signbit(effect->delay()));
    const std::vector<DSKey> sorted = {keys[1], keys[0]};
    ASSERT_TRUE(effect->FindAnimation(kDelayId));
    EXPECT_EQ(effect->FindAnimation(kDelayId)->keys(), sorted);
    EXPECT_TRUE(std::signbit(effect->FindAnimation(kDelayId)->keys()[0].value));
    ASSERT_EQ(setStates({{kDelayId, DSVariantFromReal(4.0), nullptr, 0}}), S_OK);
    EXPECT_EQ(effect->FindAnimation(kDelayId), nullptr);
    EXPECT_EQ(real(kDelayId), 4.0);
    effect->Unadvise(cookie);
}

TEST_F(Properties, StatesLeaveOtherAnimationsAlone) {
    animate(kDelayId, {{0.0, 1.0}});
    ASSERT_EQ(setStates({{kLiftId, DSVariantFromLong(7), nullptr, 0}}), S_OK);
    EXPECT_EQ(real(kDelayId), 1.0);
}

TEST_F(Properties, NoStatesChangeNothingAndNotifyNobody) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    EXPECT_EQ(effect->SetStates(nullptr, 0), S_OK);
    EXPECT_TRUE(recorder.told.empty());
    effect->Unadvise(cookie);
}

TEST_F(Properties, AWrongStateRefusesAllOfThem) {
    animate(kDelayId, {{0.0, 1.0}});
    set(kLiftId, DSVariantFromLong(4));
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    const DSKey good[] = {{0.0, 5.0}};
    const DSKey badTime[] = {{kNotANumber, 5.0}};
    const DSKey badValue[] = {{0.0, std::numeric_limits<double>::infinity()}};
    const DSKey badMode[] = {{0.0, 5.0, static_cast<DSKeyMode>(7)}};
    const VARIANT real5 = DSVariantFromReal(5.0);
    const VARIANT long5 = DSVariantFromLong(5);
    const DSPropertyState lift{kLiftId, long5, nullptr, 0};
    const DSPropertyState wrong[] = {
        {kUnknownId, real5, nullptr, 0},
        {kDelayId, long5, nullptr, 0},
        {kInvertId, long5, nullptr, 0},
        {kDelayId, DSVariantFromReal(kNotANumber), good, 1},
        {kDelayId, real5, badTime, 1},
        {kDelayId, real5, badValue, 1},
        {kDelayId, real5, badMode, 1},
        {kInvertId, DSVariantFromBool(true), good, 1},
        lift,
    };
    for (const DSPropertyState& state : wrong) {
        EXPECT_EQ(setStates({lift, state}), E_INVALIDARG) << &state - wrong;
    }
    const DSPropertyState delay{kDelayId, real5, nullptr, 0};
    EXPECT_EQ(setStates({delay, {kOldDelayId, real5, nullptr, 0}}), E_INVALIDARG)
        << "an alias and its property";
    EXPECT_EQ(setStates({lift, {kDelayId, real5, nullptr, 1}}), E_POINTER);
    EXPECT_EQ(effect->SetStates(nullptr, 1), E_POINTER);
    EXPECT_EQ(whole(kLiftId), 4);
    EXPECT_EQ(real(kDelayId), 1.0);
    EXPECT_TRUE(recorder.told.empty());
    effect->Unadvise(cookie);
}

TEST_F(Properties, DefaultsEndAnimations) {
    set(kLiftId, DSVariantFromLong(4));
    animate(kDelayId, {{0.0, 1.0}});
    EXPECT_EQ(effect->SetDefaults(), S_OK);
    EXPECT_EQ(effect->FindAnimation(kDelayId), nullptr);
    EXPECT_EQ(real(kDelayId), 0.0);
}

TEST_F(Properties, TermLetsTheObserversGo) {
    Recorder recorder;
    ULONG cookie = 0;
    effect->Advise(&recorder, &cookie);
    EXPECT_EQ(effect->Term(), S_OK);
    EXPECT_EQ(recorder.references, 0u);
}

}  // namespace
}  // namespace ruvex::test
