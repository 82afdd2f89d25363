// Storage of the registry: in memory, in a file or in the system's registry.

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
    std::filesystem::path module;  ///< the file of the class's module; empty if unknown

    friend bool operator==(const DSRegisteredClass&, const DSRegisteredClass&) = default;
};

struct DSRegisteredFamily {
    GUID classId;
    GUID family;
    ULONG version;
    std::wstring name;

    friend bool operator==(const DSRegisteredFamily&, const DSRegisteredFamily&) = default;
};

/// The registered classes and families, each in the order of registration.
struct DSRegistryContents {
    std::vector<DSRegisteredClass> classes;
    std::vector<DSRegisteredFamily> families;

    bool empty() const { return classes.empty() && families.empty(); }
    friend bool operator==(const DSRegistryContents&, const DSRegistryContents&) = default;
};

/// A store is not thread-safe. A function that fails leaves the store unchanged. It returns
/// REGDB_E_READREGDB if the store can't be read, REGDB_E_WRITEREGDB if it can't be written, and
/// REGDB_E_INVALIDVALUE if its contents are malformed.
class DSSDK_API DSRegistryStore {
public:
    virtual ~DSRegistryStore() = default;

    /// Adds an entry, or replaces the entry of the same class at its position.
    virtual HRESULT addClass(const DSRegisteredClass& entry) = 0;
    /// Removes an entry; REGDB_E_CLASSNOTREG if there is none.
    virtual HRESULT removeClass(const GUID& classId) = 0;
    /// Adds entries of one class, in the order of its families. Replaces its existing entries in
    /// these families.
    virtual HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) = 0;
    /// Removes the class's entries in these families; REGDB_E_CLASSNOTREG if there are none.
    virtual HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) = 0;
    virtual HRESULT read(DSRegistryContents& contents) = 0;
};

/// A store in memory, initially empty.
DSSDK_API std::shared_ptr<DSRegistryStore> DSMemoryRegistry();

/// A store in a small text file, which several processes may share: changes lock it and replace it
/// as a whole. Its folder is created when first needed; the file exists only while something is
/// registered. Not available on Windows.
DSSDK_API std::shared_ptr<DSRegistryStore> DSFileRegistry(std::filesystem::path file);

/// The store that all programs share. On Windows: the system's registry, with classes where
/// CoCreateInstance looks for them. Elsewhere: the file named by the environment variable
/// RUVEX_REGISTRY, or ruvex/registry in the user's data folder.
DSSDK_API std::shared_ptr<DSRegistryStore> DSSystemRegistry();
