// Effects as the module's class factory makes them, before a session does anything with them.

#pragma once

#include <cstring>
#include <gtest/gtest.h>

#include "effect/ruvex.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {

template <class T>
ComPtr<T> makeEffect(const GUID& id) {
    ComPtr<T> effect;
    builtModule()->classFactory(kRuvexClassId)->CreateInstance(nullptr, id, effect.putVoid());
    return effect;
}

inline ComPtr<IDSImageEffect> makeEffect() {
    return makeEffect<IDSImageEffect>(IID_IDSImageEffect);
}

inline ComPtr<IDSImageEffect> cloneOf(const ComPtr<IDSImageEffect>& effect) {
    ComPtr<IDSImageEffect> clone;
    EXPECT_EQ(effect->Clone(IID_IDSImageEffect, clone.putVoid()), S_OK);
    return clone;
}

/// The render state behind an effect; good as long as the effect.
inline VxDsEffect& stateOf(const ComPtr<IDSImageEffect>& effect, const GUID& id = kVxDsEffectId) {
    void* state = nullptr;
    EXPECT_EQ(effect->QueryInterface(id, &state), S_OK);
    effect->Release();
    return *static_cast<VxDsEffect*>(state);
}

/// A record with something in every field that its owner does not set.
template <class Record>
Record junkRecord() {
    const GUID recordId = Record().recordId;
    Record record;
    std::memset(static_cast<void*>(&record), 0xA5, sizeof record);
    record.recordId = recordId;
    return record;
}

/// Has the effect describe itself for a family.
inline DSIMAGEEFFECTINFO describe(const ComPtr<IDSImageEffect>& effect, const GUID& family) {
    auto info = junkRecord<DSIMAGEEFFECTINFO>();
    info.family = family;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
    return info;
}

inline std::vector<GUID> pagesOf(const ComPtr<IDSImageEffect>& effect) {
    const auto plugIn = effect.query<IDSPlugIn>();
    ULONG count = 0;
    EXPECT_EQ(plugIn->GetPropertyPageCount(&count), S_OK);
    std::vector<GUID> pages(count);
    for (ULONG i = 0; i < count; ++i) EXPECT_EQ(plugIn->GetPropertyPage(i, &pages[i]), S_OK);
    return pages;
}

}  // namespace ruvex::test
