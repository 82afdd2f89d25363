#include "sdk/com/com.h"

#include <gtest/gtest.h>

#include "sdk/com/com_ptr.h"
#include "tests/support/copy_effect.h"
#include "tests/support/reference_count.h"

namespace ruvex::test {
namespace {

TEST(Com, AnObjectStartsWithOneReferenceAndDiesWithTheLast) {
    auto* effect = new CopyEffect;
    EXPECT_EQ(CopyEffect::liveObjects, 1);
    EXPECT_EQ(effect->AddRef(), 2u);
    EXPECT_EQ(effect->Release(), 1u);
    EXPECT_EQ(effect->Release(), 0u);
    EXPECT_EQ(CopyEffect::liveObjects, 0);
}

TEST(Com, EveryInterfaceOfTheEffectCountsTheSameReferences) {
    const auto effect = ComPtr<CopyEffect>::attach(new CopyEffect);
    for (const GUID& id : {IID_IUnknown, IID_IDSProperties, IID_IDSPlugIn, IID_IDSImageEffect,
                           IID_IDSGraphDataAliases, IID_IDSTimeDependency, IID_IDSImageMIEffect}) {
        ComPtr<IUnknown> face;
        ASSERT_EQ(effect->QueryInterface(id, face.putVoid()), S_OK) << toText(id);
        EXPECT_EQ(countOf(*face), 2u) << toText(id);
        // From each interface one comes back to the same object.
        EXPECT_EQ(face.query<IUnknown>().get(),
                  static_cast<IUnknown*>(static_cast<IDSProperties*>(effect.get())));
    }
    EXPECT_EQ(effect->AddRef(), 2u);
    effect->Release();
}

TEST(Com, UnknownInterfacesAndNullPointersAreRefused) {
    const auto effect = ComPtr<CopyEffect>::attach(new CopyEffect);
    void* out = &out;
    EXPECT_EQ(effect->QueryInterface(IID_IClassFactory, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(effect->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(Com, StatusCodesAreTheSystems) {
    EXPECT_EQ(static_cast<std::uint32_t>(E_POINTER), 0x80004003u);
    EXPECT_EQ(static_cast<std::uint32_t>(E_NOINTERFACE), 0x80004002u);
    EXPECT_EQ(static_cast<std::uint32_t>(E_OUTOFMEMORY), 0x8007000Eu);
    EXPECT_EQ(static_cast<std::uint32_t>(E_INVALIDARG), 0x80070057u);
    EXPECT_EQ(static_cast<std::uint32_t>(CLASS_E_NOAGGREGATION), 0x80040110u);
    EXPECT_EQ(static_cast<std::uint32_t>(CLASS_E_CLASSNOTAVAILABLE), 0x80040111u);
    EXPECT_TRUE(FAILED(E_FAIL));
    EXPECT_FALSE(FAILED(S_FALSE));
}

TEST(ComPtr, CopiesAndMovesReferences) {
    auto first = ComPtr<CopyEffect>::attach(new CopyEffect);
    ComPtr<CopyEffect> second = first;
    EXPECT_EQ(countOf(*first.query<IUnknown>()), 3u);
    ComPtr<CopyEffect> third = std::move(first);
    EXPECT_FALSE(first);
    EXPECT_TRUE(second == third);
    second = third;
    third = nullptr;
    EXPECT_EQ(CopyEffect::liveObjects, 1);
    second.reset();
    EXPECT_EQ(CopyEffect::liveObjects, 0);
}

TEST(ComPtr, AQueryWithoutAnAnswerIsNull) {
    const auto effect = ComPtr<CopyEffect>::attach(new CopyEffect);
    EXPECT_FALSE(effect.query<IDSImage>());
    EXPECT_FALSE(ComPtr<IDSImage>().query<IUnknown>());
}

TEST(Marshaler, BelongsToItsOuterObject) {
    const auto outer = ComPtr<CopyEffect>::attach(new CopyEffect);
    auto* unknown = static_cast<IUnknown*>(static_cast<IDSProperties*>(outer.get()));
    ComPtr<IUnknown> marshaler;
    ASSERT_EQ(CoCreateFreeThreadedMarshaler(unknown, marshaler.put()), S_OK);
    EXPECT_EQ(countOf(*unknown), 1u);

    const auto marshal = marshaler.query<IMarshal>();
    ASSERT_TRUE(marshal);
    EXPECT_EQ(countOf(*unknown), 2u);
    EXPECT_EQ(countOf(*marshaler), 1u);
    EXPECT_EQ(marshal.query<IUnknown>().get(), unknown);
    EXPECT_FALSE(marshaler.query<IDSImage>());
}

TEST(Marshaler, StandsAloneWithoutAnOuterObject) {
    ComPtr<IUnknown> marshaler;
    ASSERT_EQ(CoCreateFreeThreadedMarshaler(nullptr, marshaler.put()), S_OK);
    const auto marshal = marshaler.query<IMarshal>();
    ASSERT_TRUE(marshal);
    EXPECT_EQ(countOf(*marshaler), 2u);
    EXPECT_EQ(CoCreateFreeThreadedMarshaler(nullptr, nullptr), E_POINTER);
}

}  // namespace
}  // namespace ruvex::test
