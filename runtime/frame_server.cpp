#include "runtime/frame_server.h"

#include <utility>

namespace ruvex::runtime {

FrameServer::FrameServer(std::shared_ptr<InputProvider> provider, InterruptionTest interruption)
    : provider_(std::move(provider)), interruption_(std::move(interruption)) {}

ComPtr<FrameServer> FrameServer::create(std::shared_ptr<InputProvider> provider,
                                        InterruptionTest interruption) {
    return ComPtr<FrameServer>::attach(
        new FrameServer(std::move(provider), std::move(interruption)));
}

HRESULT FrameServer::GetInputFrame(IUnknown*, ULONG inputIndex, double seconds, IUnknown** frame) {
    if (!frame) return E_POINTER;
    *frame = nullptr;
    if (!provider_ || inputIndex != 0) return E_FAIL;
    try {
        *frame = provider_->imageAt(seconds).detach();
    } catch (...) {
        return E_FAIL;
    }
    return *frame ? S_OK : E_FAIL;
}

HRESULT FrameServer::QueryInterruption() {
    if (!interruption_ || !interruption_()) return S_OK;
    interrupted_ = true;
    return S_FALSE;
}

}  // namespace ruvex::runtime
