// The host's answers to an effect that asks for frames or whether to stop.

#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/effect/effect_host.h"
#include "sdk/images/image.h"

namespace ruvex::runtime {

/// Where frames come from.
struct InputProvider {
    virtual ~InputProvider() = default;

    /// The input at a time, as an image that nobody else reads or writes: the effect may work in
    /// its pixels. Null refuses. Called on the thread that renders; by several at once when
    /// sessions share the provider. An exception counts as a refusal.
    virtual ComPtr<IDSImage> imageAt(double seconds) = 0;
};

/// True stops the render. Called from many threads at once, about once a row.
using InterruptionTest = std::function<bool()>;

/// The effect host of one session.
class FrameServer final : public ComObject<IDSEffectHost> {
public:
    /// Either may be empty: then every request is refused, or nothing interrupts.
    static ComPtr<FrameServer> create(std::shared_ptr<InputProvider> provider,
                                      InterruptionTest interruption);

    /// Serves input 0 alone.
    HRESULT GetInputFrame(IUnknown* executeContext, ULONG inputIndex, double seconds,
                          IUnknown** frame) override;
    HRESULT QueryInterruption() override;

    /// Whether a stop was reported since the last `resetInterrupted`.
    bool interrupted() const { return interrupted_; }
    void resetInterrupted() { interrupted_ = false; }

private:
    FrameServer(std::shared_ptr<InputProvider> provider, InterruptionTest interruption);
    ~FrameServer() override = default;

    std::shared_ptr<InputProvider> provider_;
    InterruptionTest interruption_;
    std::atomic<bool> interrupted_{false};
};

}  // namespace ruvex::runtime
