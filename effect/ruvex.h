// The effect's main class, with which the host works.

#pragma once

#include "effect/frame_host.h"
#include "host/base/class_ids.h"
#include "host/base/module_use.h"
#include "host/base/parameter_reader.h"
#include "host/base/vx_ds_effect.h"
#include "overlay/vx_t_ds_crop.h"
#include "parameters/ruvex_interface.h"
#include "sdk/effect/effect.h"
#include "stages/frame_memory.h"

namespace ruvex {

/// Simulates faulty television reception. Concurrent renders need separate objects (clones).
class Ruvex final : public VxDsEffect, public CDSImageMIEffect, public IRuvexControl {
public:
    Ruvex();
    ~Ruvex() override;

    HRESULT QueryInterface(const GUID& id, void** out) override;

    HRESULT Init() override;
    HRESULT GetInfo(DSPLUGININFO* info) override;
    HRESULT GetToolInfo(DSTOOLINFO* info) override;
    HRESULT SetDefaults() override;
    HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) override;
    HRESULT TestFormat(const GUID& format) override;
    HRESULT Verify() override;
    HRESULT Execute(double seconds) override;
    HRESULT Clone(const GUID& id, void** out) override;

    void linkOverlay() override;
    void pageActivated(const char* page, std::int32_t a, std::int32_t b) override;
    void updateOverlay() override;
    HRESULT aggregationResult() override { return CLASS_E_NOAGGREGATION; }
    HRESULT extraVerify() override { return S_OK; }

    std::int32_t setWorkerCount(std::int32_t count) override;
    std::int32_t workerCount() const override;
    std::int32_t frameValues(double seconds, double framesPerSecond,
                             FrameValues* values) const override;
    FrameOutcome frameOutcome() const override;
    std::int64_t keptPictureBytes() const override {
        return std::int64_t{memory8_.paddedSource.size()} + memory16_.paddedSource.size();
    }
    std::int32_t levels(std::int64_t first, std::int64_t last, double framesPerSecond,
                        FrameValues* values, const StopQuestion* question) const override;

protected:
    const CDSPropertiesMap* GetPropertyMap() override;

private:
    Ruvex(const Ruvex& source);

    FrameHost frameHost() const;
    void startFrame();
    HRESULT renderByFormat(double seconds);
    void readCrop(double seconds);
    void placePictures();
    HRESULT linkPages();
    void reportToSource();
    ParameterReader reader() const { return {*this, parameters}; }

    ModuleUse use_;
    /// The box around the crop in the viewer. Not copied to clones.
    VxTDsCrop overlayCrop_;
    /// Whether the box has been placed on the input.
    bool overlayPlaced_ = false;
    /// The argument of IRuvexControl::setWorkerCount; 0: the machine's number of processors.
    std::int32_t workers_ = 0;
    /// For each pixel type. Not copied to clones, which may render at the same time.
    FrameMemory<Rgba8> memory8_;
    FrameMemory<RgbaS214> memory16_;
};

}  // namespace ruvex
