#include "tests/support/copy_effect.h"

#include <cstring>
#include <new>

namespace ruvex::test {

std::atomic<int> CopyEffect::liveObjects{0};

CopyEffect::CopyEffect() {
    ++liveObjects;
    AddPropertyAlias(kOldDelayId, kDelayId);
    name = L"Copy";
}

CopyEffect::CopyEffect(const CopyEffect& source)
    : CDSImageMIEffect(source),
      IRuvexControl(),
      delay_(source.delay_),
      lift_(source.lift_),
      invert_(source.invert_),
      workers_(source.workers_) {
    ++liveObjects;
    CopyAnimation(source);
}

CopyEffect::~CopyEffect() {
    --liveObjects;
}

HRESULT CopyEffect::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    if (id != kRuvexControlId) return CDSImageMIEffect::QueryInterface(id, out);
    *out = static_cast<IRuvexControl*>(this);
    AddRef();
    return S_OK;
}

HRESULT CopyEffect::Init() {
    const HRESULT status = CDSImageMIEffect::Init();
    return FAILED(status) ? status : SetDefaults();
}

HRESULT CopyEffect::SetDefaults() {
    CDSImageMIEffect::SetDefaults();
    delay_ = 0.0;
    lift_ = 0;
    invert_ = 0;
    return OnPropertyChanged(GUID_AllProperties, DSCLASS_EFFECT_PARAMETER, nullptr);
}

HRESULT CopyEffect::GetImageEffectInfo(DSIMAGEEFFECTINFO* info) {
    const HRESULT status = CDSImageMIEffect::GetImageEffectInfo(info);
    if (FAILED(status)) return status;
    if (!(info->recordId == DSID_ImageEffectInfo)) return E_INVALIDARG;
    info->field3 = 2;
    return S_OK;
}

HRESULT CopyEffect::TestFormat(const GUID& format) {
    return format == MFIF_RGBA_RAW_32 || format == MFIF_RGBA_S2_14 ? S_OK : S_FALSE;
}

HRESULT CopyEffect::Verify() {
    if (const HRESULT status = CDSImageMIEffect::Verify(); FAILED(status)) return status;
    return input && output ? S_OK : E_POINTER;
}

HRESULT CopyEffect::Execute(double seconds) {
    if (!output) return E_POINTER;
    if (const HRESULT status = output->GetStatus(); status != S_OK) return status;
    const ComPtr<IDSImage> source = sourceAt(seconds);
    if (source && source->GetStatus() == S_OK) copyRows(*source);
    return S_OK;
}

ComPtr<IDSImage> CopyEffect::sourceAt(double seconds) {
    if (keeps_ && !kept_) kept_ = input;
    if (keeps_) return kept_;
    const double back = GetValueDirect(kDelayId, delay_, seconds);
    if (back == 0.0) return input;
    ComPtr<IUnknown> frame;
    effectHost->GetInputFrame(executeContext.get(), 0, seconds - back, frame.put());
    return frame.query<IDSImage>();
}

void CopyEffect::copyRows(IDSImage& source) {
    LONG width = 0;
    LONG height = 0;
    GUID format{};
    output->GetSize(&width, &height);
    output->GetFormat(&format);
    const auto rowBytes = static_cast<std::size_t>(width * DSBytesPerPixel(format));
    const auto* from = static_cast<const unsigned char*>(source.GetPixels());
    auto* to = static_cast<unsigned char*>(output->GetPixels());
    const LONG first = roiSet ? roi.y : 0;
    const LONG end = roiSet ? roi.y + roi.height : height;
    for (LONG y = first; y < end; ++y) {
        if (effectHost && effectHost->QueryInterruption() != S_OK) return;
        for (std::size_t i = 0; i < rowBytes; ++i) {
            const std::size_t at = static_cast<std::size_t>(y) * rowBytes + i;
            const auto lifted = static_cast<unsigned char>(from[at] + lift_);
            to[at] = invert_ ? static_cast<unsigned char>(255 - lifted) : lifted;
        }
    }
}

HRESULT CopyEffect::Clone(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    auto* clone = new (std::nothrow) CopyEffect(*this);
    if (!clone) return E_OUTOFMEMORY;
    const HRESULT status = clone->QueryInterface(id, out);
    clone->Release();
    return status;
}

std::int32_t CopyEffect::setWorkerCount(std::int32_t count) {
    if (count < 1) return E_INVALIDARG;
    workers_ = count;
    return S_OK;
}

const CDSPropertiesMap* CopyEffect::GetPropertyMap() {
    return staticMap();
}

const CDSPropertiesMap* CopyEffect::staticMap() {
    static DSStaticPropertiesMap storage;
    static const CDSPropertiesMapEntry entries[] = {
        {{kDelayId, nullptr, DSCLASS_EFFECT_PARAMETER, DSCAPS_ANIMATABLE, VT_R8, 1, 1, 2},
         &DSMemberOf<CopyEffect, &CopyEffect::delay_>},
        {{kLiftId, nullptr, DSCLASS_EFFECT_PARAMETER, DSCAPS_PLAIN, VT_I4, 3, 3, 4},
         &DSMemberOf<CopyEffect, &CopyEffect::lift_>},
        {{kInvertId, nullptr, DSCLASS_EFFECT_PARAMETER, DSCAPS_PLAIN, VT_BOOL, 5, 5, 6},
         &DSMemberOf<CopyEffect, &CopyEffect::invert_>},
    };
    return InitStaticPropertyMap(storage, entries);
}

}  // namespace ruvex::test
