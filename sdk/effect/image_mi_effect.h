// An image effect with more than one input: the base class of concrete effects.

#pragma once

#include "sdk/effect/image_effect_ex.h"

struct IDSImageMIEffect : IUnknown {
    virtual HRESULT GetNumInputs(ULONG* count) = 0;
    /// Gives the inputs that are set, each with a reference for the caller: writes at most
    /// `capacity` of them and their number to `fetched`. S_FALSE if there are more.
    virtual HRESULT EnumInputs(ULONG capacity, IDSImage** inputs, ULONG* fetched) = 0;

protected:
    ~IDSImageMIEffect() = default;
};

inline constexpr GUID IID_IDSImageMIEffect =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A19");
template <>
struct DSInterfaceTraits<IDSImageMIEffect> : DSInterface<IID_IDSImageMIEffect> {};

class DSSDK_API CDSImageMIEffect : public ComObjectWith<CDSImageEffectEx, IDSImageMIEffect> {
public:
    /// Gives the number of inputs that are set, 0 to 2.
    HRESULT GetNumInputs(ULONG* count) override;
    HRESULT EnumInputs(ULONG capacity, IDSImage** inputs, ULONG* fetched) override;

protected:
    CDSImageMIEffect() = default;
    /// Copies what the bases copy: the images and interfaces from the host, the name, the pages and
    /// the aliases. Not copied: the reference count, the observers and the animations.
    CDSImageMIEffect(const CDSImageMIEffect&) = default;
    ~CDSImageMIEffect() override = default;
};
