// COM basics: status codes, the root interfaces, object creation by class identifier. On Windows
// these are the system's own.

#pragma once

#include <cstdint>

#include "sdk/com/export.h"
#include "sdk/com/guid.h"

#ifdef _WIN32

#include <objbase.h>

#else

using HRESULT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using BOOL = int;

#ifndef FALSE
#define FALSE 0
#define TRUE 1
#endif

constexpr HRESULT makeStatus(std::uint32_t code) {
    return static_cast<HRESULT>(code);
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = makeStatus(0x80004001u);
inline constexpr HRESULT E_NOINTERFACE = makeStatus(0x80004002u);
inline constexpr HRESULT E_POINTER = makeStatus(0x80004003u);
inline constexpr HRESULT E_ABORT = makeStatus(0x80004004u);
inline constexpr HRESULT E_FAIL = makeStatus(0x80004005u);
inline constexpr HRESULT E_UNEXPECTED = makeStatus(0x8000FFFFu);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = makeStatus(0x80040110u);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = makeStatus(0x80040111u);
inline constexpr HRESULT REGDB_E_READREGDB = makeStatus(0x80040150u);
inline constexpr HRESULT REGDB_E_WRITEREGDB = makeStatus(0x80040151u);
inline constexpr HRESULT REGDB_E_INVALIDVALUE = makeStatus(0x80040153u);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = makeStatus(0x80040154u);
inline constexpr HRESULT E_OUTOFMEMORY = makeStatus(0x8007000Eu);
inline constexpr HRESULT E_INVALIDARG = makeStatus(0x80070057u);

constexpr bool SUCCEEDED(HRESULT status) {
    return status >= 0;
}
constexpr bool FAILED(HRESULT status) {
    return status < 0;
}

inline constexpr DWORD CLSCTX_INPROC_SERVER = 1;

/// The base of every interface. A caller that receives an interface pointer owns one COM reference.
struct IUnknown {
    /// Stores the object's interface `id` in `*out` and adds a reference for the caller.
    /// E_NOINTERFACE, with null in `*out`, if the object does not implement it.
    virtual HRESULT QueryInterface(const GUID& id, void** out) = 0;
    /// Both return the new reference count, for diagnosis only.
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    /// Creates an object and stores its interface `id` in `*out`. A non-null `outer` requests
    /// aggregation, which no class of this project supports.
    virtual HRESULT CreateInstance(IUnknown* outer, const GUID& id, void** out) = 0;
    /// Adds (nonzero) or removes (0) a lock that keeps the module loaded.
    virtual HRESULT LockServer(BOOL lock) = 0;

protected:
    ~IClassFactory() = default;
};

/// Marks an object that may be called from any thread. Only the system uses its functions.
struct IMarshal : IUnknown {
protected:
    ~IMarshal() = default;
};

inline constexpr GUID IID_IUnknown = ruvex::guidFromText("00000000-0000-0000-C000-000000000046");
inline constexpr GUID IID_IClassFactory =
    ruvex::guidFromText("00000001-0000-0000-C000-000000000046");
inline constexpr GUID IID_IMarshal = ruvex::guidFromText("00000003-0000-0000-C000-000000000046");

/// Creates an object of the class, from the first module in the table (sdk/com/module_table.h) that
/// serves it. REGDB_E_CLASSNOTREG if none does.
DSSDK_API HRESULT CoCreateInstance(const GUID& classId, IUnknown* outer, DWORD context,
                                   const GUID& id, void** out);

/// Creates a free-threaded marshaler. `outer`, an object that may be called from any thread,
/// delegates queries for IMarshal to it. References to that IMarshal count as references to
/// `outer`;
/// `*marshaler` does not, and the destructor of `outer` releases it. `outer` may be null.
DSSDK_API HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler);

#endif
