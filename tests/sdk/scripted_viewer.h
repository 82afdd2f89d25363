// A viewer and its site, which record the calls of tools.

#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/properties/properties.h"
#include "sdk/viewer/viewer.h"

namespace ruvex::test {

/// Writes properties directly. Its brackets have the styles 2, 3, ...
class ScriptedSite final : public ComObject<IDSPageSite> {
public:
    HRESULT GetTime(double* seconds) override {
        *seconds = time;
        return called("GetTime");
    }
    HRESULT WriteProperty(IUnknown* object, const GUID& id, double seconds, const VARIANT* value,
                          UNDO_STYLE style) override {
        lastStyle = style;
        lastTime = seconds;
        const auto properties = ComPtr<IUnknown>(object).query<IDSProperties>();
        const HRESULT status = called("WriteProperty");
        return FAILED(status) ? status : properties->SetValue(id, seconds, value);
    }
    HRESULT BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) override {
        const HRESULT status = called("BeginUndo");
        if (FAILED(status)) return status;
        *style = ++lastBracket;
        open.push_back(*style);
        bracketName = info->name;
        return status;
    }
    HRESULT EndUndo(UNDO_STYLE style) override {
        std::erase(open, style);
        return called("EndUndo");
    }
    HRESULT CancelUndo(UNDO_STYLE) override { return called("CancelUndo"); }

    std::vector<std::string> calls;
    std::string failing;
    std::function<void(const std::string& call)> during;
    double time = 4.0;
    std::vector<UNDO_STYLE> open;
    UNDO_STYLE lastBracket = DSUNDO_OWN_STEP;
    std::wstring bracketName;
    UNDO_STYLE lastStyle = 0;
    double lastTime = -1.0;

private:
    HRESULT called(const std::string& call) {
        calls.push_back(call);
        if (const auto now = during) now(call);
        return call == failing ? E_FAIL : S_OK;
    }
};

class ScriptedViewer final : public ComObject<IDSViewer> {
public:
    static inline int alive = 0;

    explicit ScriptedViewer(std::string name = "viewer", std::vector<std::string>* shared = nullptr)
        : name_(std::move(name)), shared_(shared) {
        ++alive;
    }

    HRESULT InvalidateLayer(ULONG layer, const RECT*) override {
        lastLayer = layer;
        return called("InvalidateLayer");
    }
    HRESULT GetViewerWindow(HWND* window) override {
        *window = reinterpret_cast<HWND>(this);
        return called("GetViewerWindow");
    }
    HRESULT GetSite(IDSPageSite** out) override {
        const HRESULT status = called("GetSite");
        return FAILED(status) ? status : copyReference(ComPtr<IDSPageSite>(site), out);
    }
    HRESULT ReleasePen(IUnknown*) override { return called("ReleasePen"); }

    std::vector<std::string> calls;
    std::string failing;
    std::function<void(const std::string& call)> during;
    ComPtr<ScriptedSite> site = ComPtr<ScriptedSite>::attach(new ScriptedSite);
    ULONG lastLayer = 0;

private:
    ~ScriptedViewer() override { --alive; }

    HRESULT called(const std::string& call) {
        calls.push_back(call);
        if (shared_) shared_->push_back(name_ + " " + call);
        if (const auto now = during) now(call);
        return call == failing ? E_FAIL : S_OK;
    }

    std::string name_;
    std::vector<std::string>* shared_;
};

inline ComPtr<ScriptedViewer> makeViewer(std::string name = "viewer",
                                         std::vector<std::string>* shared = nullptr) {
    return ComPtr<ScriptedViewer>::attach(new ScriptedViewer(std::move(name), shared));
}

/// An object without properties, which refuses observers, or keeps the last one for good.
class ScriptedProperties final : public ComObject<IDSProperties> {
public:
    HRESULT GetPropertyCount(ULONG*) override { return E_NOTIMPL; }
    HRESULT GetPropertyDef(ULONG, const CDSParamDef**) override { return E_NOTIMPL; }
    HRESULT GetValue(const GUID&, double, VARIANT*) override { return E_NOTIMPL; }
    HRESULT SetValue(const GUID&, double, const VARIANT*) override { return E_NOTIMPL; }
    HRESULT SetKeys(const GUID&, const DSKey*, ULONG) override { return E_NOTIMPL; }
    HRESULT ClearKeys(const GUID&) override { return E_NOTIMPL; }
    HRESULT GetKeys(const GUID&, DSKey*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT GetPlainValue(const GUID&, VARIANT*) override { return E_NOTIMPL; }
    HRESULT SetStates(const DSPropertyState*, ULONG) override { return E_NOTIMPL; }
    HRESULT Advise(IDSPropertyObserver* added, ULONG* cookie) override {
        if (refuses) return E_OUTOFMEMORY;
        observer = added;
        *cookie = 1;
        return S_OK;
    }
    HRESULT Unadvise(ULONG) override { return E_INVALIDARG; }

    bool refuses = true;
    ComPtr<IDSPropertyObserver> observer;
};

}  // namespace ruvex::test
