// An image effect that tells of its time dependency and of the aliases of its properties.

#pragma once

#include "sdk/effect/image_effect.h"

struct IDSGraphDataAliases : IUnknown {
    /// The property that an identifier means: itself, unless it is an alias.
    virtual HRESULT GetAliasedProperty(const GUID& alias, GUID* id) = 0;

protected:
    ~IDSGraphDataAliases() = default;
};

struct IDSTimeDependency : IUnknown {
    /// The input times that the frame at `seconds` may ask for.
    virtual HRESULT GetTimeDependency(double seconds, DSTIMERANGE* range) = 0;

protected:
    ~IDSTimeDependency() = default;
};

inline constexpr GUID IID_IDSGraphDataAliases =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A17");
template <>
struct DSInterfaceTraits<IDSGraphDataAliases> : DSInterface<IID_IDSGraphDataAliases> {};
inline constexpr GUID IID_IDSTimeDependency =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A18");
template <>
struct DSInterfaceTraits<IDSTimeDependency> : DSInterface<IID_IDSTimeDependency> {};

class DSSDK_API CDSImageEffectEx
    : public ComObjectWith<CDSImageEffect, IDSGraphDataAliases, IDSTimeDependency> {
public:
    HRESULT GetAliasedProperty(const GUID& alias, GUID* id) override;
    /// All of time: an effect may ask for its input at any other time.
    HRESULT GetTimeDependency(double seconds, DSTIMERANGE* range) override;

protected:
    CDSImageEffectEx() = default;
    CDSImageEffectEx(const CDSImageEffectEx&) = default;
    ~CDSImageEffectEx() override = default;
};
