// The interface of every plug-in, and the host's base class that implements it.

#pragma once

#include <string>
#include <vector>

#include "sdk/effect/effect_info.h"
#include "sdk/properties/aliased_property_container.h"

struct IDSPlugIn : IUnknown {
    /// Initialises the object. Called once; only GetInfo may be called before.
    virtual HRESULT Init() = 0;
    virtual HRESULT Term() = 0;
    virtual HRESULT GetInfo(DSPLUGININFO* info) = 0;
    virtual HRESULT GetToolInfo(DSTOOLINFO* info) = 0;
    /// Sets every property to its default value and removes all animations.
    virtual HRESULT SetDefaults() = 0;
    /// The class identifiers of the plug-in's property pages, in the order in which they are shown.
    virtual HRESULT GetPropertyPageCount(ULONG* count) = 0;
    virtual HRESULT GetPropertyPage(ULONG index, GUID* classId) = 0;

protected:
    ~IDSPlugIn() = default;
};

inline constexpr GUID IID_IDSPlugIn = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A15");
template <>
struct DSInterfaceTraits<IDSPlugIn> : DSInterface<IID_IDSPlugIn> {};

/// A plug-in with properties, a name and a list of property pages.
class DSSDK_API CDSPlugInEffect : public ComObjectWith<CDSAliasedPropertyContainer, IDSPlugIn> {
public:
    HRESULT Init() override { return S_OK; }
    /// Releases the observers. May be called more than once.
    HRESULT Term() override;
    /// Both return E_POINTER for null and do not change the record.
    HRESULT GetInfo(DSPLUGININFO* info) override;
    HRESULT GetToolInfo(DSTOOLINFO* info) override;
    HRESULT SetDefaults() override;
    HRESULT GetPropertyPageCount(ULONG* count) override;
    HRESULT GetPropertyPage(ULONG index, GUID* classId) override;

protected:
    CDSPlugInEffect() = default;
    /// Copies the aliases, the name and the page list.
    CDSPlugInEffect(const CDSPlugInEffect&) = default;
    ~CDSPlugInEffect() override = default;

    /// Appends a page to the host's list.
    void AddPropertyPage(const GUID& classId) { propertyPages.push_back(classId); }
    /// Removes every entry of a page from the list; false if there was none.
    bool RemovePropertyPage(const GUID& classId);

    std::wstring name;
    std::vector<GUID> propertyPages;
};
