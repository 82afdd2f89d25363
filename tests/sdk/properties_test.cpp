#include "sdk/properties/properties.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "sdk/com/com_object.h"
#include "tests/support/copy_effect.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknownId = guidFromText("77A1C001-0000-4000-8000-0000000000FF");

/// Keeps what it was told; lives on the stack, so that its count only shows what is held.
class Recorder final : public IDSPropertyObserver {
public:
    HRESULT QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    HRESULT PropertyChanged(const GUID& id, ULONG classification) override {
        told.push_back(id);
        lastClassification = classification;
        return S_OK;
    }

    std::vector<GUID> told;
    ULONG lastClassification = 0;
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

    HRESULT animate(const GUID& id, const std::vector<DSKey>& keys) {
        return effect->SetKeys(id, keys.data(), static_cast<ULONG>(keys.size()));
    }

    ComPtr<CopyEffect> effect = ComPtr<CopyEffect>::attach(new CopyEffect);
};

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
    EXPECT_EQ(set(kDelayId, DSVariantFromReal(std::numeric_limits<double>::quiet_NaN())),
              E_INVALIDARG);
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
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(animate(kDelayId, {{0.0, 2.0}, {1.0, nan}}), E_INVALIDARG);
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
    HRESULT PropertyChanged(const GUID&, ULONG) override {
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
