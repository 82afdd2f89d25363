// Where the table of installed effects is kept.

#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "sdk/com/com.h"

struct DSRegisteredClass {
    GUID classId;
    UINT stringId;
    std::wstring description;
    std::filesystem::path module;  ///< the file that serves the class; empty when it is not known

    friend bool operator==(const DSRegisteredClass&, const DSRegisteredClass&) = default;
};

struct DSRegisteredFamily {
    GUID classId;
    GUID family;
    ULONG version;
    std::wstring name;

    friend bool operator==(const DSRegisteredFamily&, const DSRegisteredFamily&) = default;
};

/// Both in the order of registration.
struct DSRegistryContents {
    std::vector<DSRegisteredClass> classes;
    std::vector<DSRegisteredFamily> families;

    bool empty() const { return classes.empty() && families.empty(); }
    friend bool operator==(const DSRegistryContents&, const DSRegistryContents&) = default;
};

/// One operation at a time. An operation that fails leaves the store as it was. What is not to be
/// read gives REGDB_E_READREGDB, what is not to be written REGDB_E_WRITEREGDB, and what is no
/// registry REGDB_E_INVALIDVALUE.
class DSSDK_API DSRegistryStore {
public:
    virtual ~DSRegistryStore() = default;

    /// An entry of the same class is replaced, in its place.
    virtual HRESULT addClass(const DSRegisteredClass& entry) = 0;
    /// REGDB_E_CLASSNOTREG when there is no such entry.
    virtual HRESULT removeClass(const GUID& classId) = 0;
    /// Entries of one class in the order of its families. What it had of these families is
    /// replaced.
    virtual HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) = 0;
    /// REGDB_E_CLASSNOTREG when the class is in none of them.
    virtual HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) = 0;
    virtual HRESULT read(DSRegistryContents& contents) = 0;
};

/// A store that ends with the process, empty at first.
DSSDK_API std::shared_ptr<DSRegistryStore> DSMemoryRegistry();

/// A small text file, shared by processes that take turns. Its folder is made when it is first
/// needed; the file is there as long as something is registered, and is replaced as a whole. There
/// is none where the system has a registry of its own.
DSSDK_API std::shared_ptr<DSRegistryStore> DSFileRegistry(std::filesystem::path file);

/// The one that every program on the machine sees: the system's own, where classes are entered so
/// that CoCreateInstance finds them; elsewhere the user's file, which is RUVEX_REGISTRY of the
/// environment, or ruvex/registry in the user's data folder.
DSSDK_API std::shared_ptr<DSRegistryStore> DSSystemRegistry();
