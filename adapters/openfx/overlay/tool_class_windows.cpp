#include "adapters/openfx/overlay/tool_class.h"
#include "runtime/error.h"
#include "sdk/effect/ruvex_class_id.h"

namespace ruvex::openfx {
namespace {

/// COM for the calling thread, which its host has mostly initialised already.
class ComUse {
public:
    ComUse() : initialised_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComUse() {
        if (initialised_) CoUninitialize();
    }
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;

private:
    bool initialised_;
};

}  // namespace

struct ToolClass::Registration {
    ComUse com;
    DWORD cookie = 0;

    explicit Registration(const runtime::Module& module) {
        const ComPtr<IClassFactory> factory = module.classFactory(kToolClassId);
        runtime::require(CoRegisterClassObject(kToolClassId, factory.get(), CLSCTX_INPROC_SERVER,
                                               REGCLS_MULTIPLEUSE, &cookie),
                         "the on-screen controls cannot be made known to the system");
    }
    ~Registration() { CoRevokeClassObject(cookie); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
};

ToolClass::ToolClass(const runtime::Module& module)
    : registration_(std::make_unique<Registration>(module)) {}
ToolClass::~ToolClass() = default;

}  // namespace ruvex::openfx
