#include "effect/ruvex.h"

#include <cmath>

#include "effect/frame_values.h"
#include "effect/property_map.h"
#include "imaging/threads.h"
#include "sdk/com/guarded.h"
#include "sdk/effect/content.h"
#include "sdk/resources/resources.h"

namespace ruvex {
namespace {

// The capability flags in the host's record: bits 0 to 6 except bit 5. Bit 6 is the channel mask.
constexpr std::uint32_t kCapabilities = 95;

constexpr UINT kNameString = 1;
constexpr UINT kDescriptionString = 2;
constexpr UINT kToolBitmap = 102;

// The answer to a StopQuestion, as a render's interruption asks it.
std::uint32_t answerOf(void* context, std::atomic<std::uint32_t>*) {
    const auto& question = *static_cast<const StopQuestion*>(context);
    return question.stops(question.context) ? 1 : 0;
}

}  // namespace

Ruvex::Ruvex() {
    cropMode = CropMode::WindowEdges;
    capabilityFlags = kCapabilities;
    if (SUCCEEDED(CDSPlugInEffect::Init())) SetDefaults();

    const DSFloatPair size{static_cast<float>(projectAspect() * projectSize(kDSProjectUserSizeX)),
                           static_cast<float>(projectSize(kDSProjectUserSizeY))};
    geometry.output.size = geometry.input.size = geometry.input2.size = size;
    link->setGeometry(geometry);
}

Ruvex::Ruvex(const Ruvex& source)
    : VxDsEffect(source), CDSImageMIEffect(source), IRuvexControl(), workers_(source.workers_) {
    CopyAnimation(source);
}

Ruvex::~Ruvex() {
    link->follow(nullptr);
    overlay.endAll();
    CDSPlugInEffect::Term();
}

HRESULT Ruvex::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    if (id == kRuvexClassId || id == kVxDsEffectId) {
        *out = static_cast<VxDsEffect*>(this);
    } else if (id == kRuvexControlId) {
        *out = static_cast<IRuvexControl*>(this);
    } else {
        return CDSImageMIEffect::QueryInterface(id, out);
    }
    AddRef();
    return S_OK;
}

HRESULT Ruvex::Init() {
    const HRESULT status = CDSPlugInEffect::Init();
    return FAILED(status) ? status : SetDefaults();
}

HRESULT Ruvex::SetDefaults() {
    const HRESULT status = CDSImageMIEffect::SetDefaults();
    if (FAILED(status)) return status;
    parameters.setDefaults();
    return OnPropertyChanged(GUID_AllProperties, DSCLASS_EFFECT_PARAMETER, nullptr);
}

HRESULT Ruvex::GetToolInfo(DSTOOLINFO* info) {
    const HRESULT status = CDSImageMIEffect::GetToolInfo(info);
    if (FAILED(status)) return status;
    LoadStringW(moduleInstance, kNameString, info->name, DSTOOLINFO::kTextLength);
    LoadStringW(moduleInstance, kDescriptionString, info->description, DSTOOLINFO::kTextLength);
    info->module = moduleInstance;
    info->bitmapId = kToolBitmap;
    info->classId = kRuvexClassId;
    return guarded([&] {
        name = info->name;
        return S_OK;
    });
}

const CDSPropertiesMap* Ruvex::GetPropertyMap() {
    static DSStaticPropertiesMap storage;
    return InitStaticPropertyMap(storage, propertyMapEntries());
}

HRESULT Ruvex::TestFormat(const GUID& format) {
    return format == MFIF_RGBA_RAW_32 || format == MFIF_RGBA_S2_14 ? S_OK : S_FALSE;
}

HRESULT Ruvex::Clone(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return guarded([&] {
        Ruvex* const copy = new Ruvex(*this);
        const HRESULT status = copy->QueryInterface(id, out);
        copy->Release();
        return status;
    });
}

std::int32_t Ruvex::setWorkerCount(std::int32_t count) {
    if (count < 0 || count > kMostWorkers) return E_INVALIDARG;
    workers_ = count;
    return S_OK;
}

std::int32_t Ruvex::frameValues(double seconds, double framesPerSecond, FrameValues* values) const {
    if (!values) return E_POINTER;
    if (!(framesPerSecond > 0.0) || !std::isfinite(framesPerSecond)) return E_INVALIDARG;
    return guarded([&] {
        *values = valuesOfFrame(reader(), {seconds, framesPerSecond});
        return S_OK;
    });
}

std::int32_t Ruvex::levels(std::int64_t first, std::int64_t last, double framesPerSecond,
                           FrameValues* values, const StopQuestion* question) const {
    if (!values) return E_POINTER;
    if (!(framesPerSecond > 0.0) || !std::isfinite(framesPerSecond)) return E_INVALIDARG;
    if (first < 0 || last < first) return E_INVALIDARG;
    return guarded([&] {
        std::vector<FrameTime> times;
        const auto count = static_cast<std::uint64_t>(last - first) + 1;
        if (count > times.max_size()) return E_OUTOFMEMORY;
        times.reserve(static_cast<std::size_t>(count));
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto number = static_cast<double>(first + static_cast<std::int64_t>(i));
            times.emplace_back(number / framesPerSecond, framesPerSecond);
        }
        StopQuestion asked = question ? *question : StopQuestion{};
        InterruptionRecord record;
        if (question) record.reset(&asked, answerOf);
        valuesOfFrames({*this, parameters, &record}, times, values);
        return record.interrupted != 0 ? E_ABORT : S_OK;
    });
}

FrameOutcome Ruvex::frameOutcome() const {
    if (interruption.progress == kOutOfMemoryCode) return FrameOutcome::OutOfMemory;
    return interruption.interrupted != 0 ? FrameOutcome::Stopped : FrameOutcome::Finished;
}

std::int32_t Ruvex::workerCount() const {
    const WorkerCountScope workers(workers_);
    return ruvex::workerCount();
}

}  // namespace ruvex
