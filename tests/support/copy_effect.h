// A small effect, built on the host's classes as any effect is, for the tests of the host's side.

#pragma once

#include <atomic>
#include <cstdint>

#include "parameters/ruvex_interface.h"
#include "sdk/effect/effect.h"

namespace ruvex::test {

inline constexpr GUID kDelayId = guidFromText("77A1C001-0000-4000-8000-000000000001");
inline constexpr GUID kLiftId = guidFromText("77A1C001-0000-4000-8000-000000000002");
inline constexpr GUID kInvertId = guidFromText("77A1C001-0000-4000-8000-000000000003");
inline constexpr GUID kOldDelayId = guidFromText("77A1C001-0000-4000-8000-000000000004");

/// Copies input to output, byte by byte, with
/// - Delay, a real, default 0: the input of so many seconds before is taken from the host; zeroes
///   when the host refuses it;
/// - Lift, a whole number, default 0: added to every byte;
/// - Invert, a check box, default off: takes every byte from 255.
/// Asks once a row whether to stop. `kOldDelayId` is an alias of Delay.
class CopyEffect final : public CDSImageMIEffect, public IRuvexControl {
public:
    CopyEffect();
    CopyEffect(const CopyEffect& source);
    ~CopyEffect();

    HRESULT QueryInterface(const GUID& id, void** out) override;
    HRESULT Init() override;
    HRESULT SetDefaults() override;
    HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) override;
    HRESULT TestFormat(const GUID& format) override;
    HRESULT Verify() override;
    HRESULT Execute(double seconds) override;
    HRESULT Clone(const GUID& id, void** out) override;

    std::int32_t setWorkerCount(std::int32_t count) override;
    std::int32_t workerCount() const override { return workers_; }
    std::int32_t frameValues(double, double, ruvex::FrameValues*) const override {
        return E_NOTIMPL;
    }
    FrameOutcome frameOutcome() const override { return FrameOutcome::Finished; }
    std::int64_t keptPictureBytes() const override { return 0; }
    std::int32_t levels(std::int64_t, std::int64_t, double, ruvex::FrameValues*,
                        const ruvex::StopQuestion*) const override {
        return E_NOTIMPL;
    }

    using CDSPlugInEffect::AddPropertyPage;
    using CDSPlugInEffect::RemovePropertyPage;

    double delay() const { return delay_; }

    /// From now on the effect breaks its host's rule: it holds its first input, and copies from it
    /// in later renders too, as long as the image is ready.
    void keepInput() { keeps_ = true; }

    /// Objects of this class that live now.
    static std::atomic<int> liveObjects;

protected:
    const CDSPropertiesMap* GetPropertyMap() override;

private:
    static const CDSPropertiesMap* staticMap();

    ComPtr<IDSImage> sourceAt(double seconds);
    void copyRows(IDSImage& source);

    double delay_ = 0.0;
    std::int32_t lift_ = 0;
    std::int32_t invert_ = 0;
    bool keeps_ = false;
    ComPtr<IDSImage> kept_;
    std::int32_t workers_ = 2;
};

}  // namespace ruvex::test
