#include "tests/openfx/host/image.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {
namespace {

constexpr std::size_t kGuardBytes = 64;
constexpr std::byte kGuard{0xC5};

std::size_t strideOf(const Raster& raster, const ImageLayout& layout) {
    return raster.rowBytes() + static_cast<std::size_t>(layout.padding);
}

}  // namespace

Image::Image(Host& host, const Raster& raster, const ImageLayout& layout, const ImageInfo& info,
             std::shared_ptr<RenderRecord> record)
    : properties(host),
      bounds_(raster.bounds),
      format_(raster.format),
      layout_(layout),
      record_(std::move(record)) {
    const auto rows = static_cast<std::size_t>(heightOf(bounds_));
    memory_.assign(2 * kGuardBytes + rows * strideOf(raster, layout), kGuard);
    for (int y = bounds_.y1; y < bounds_.y2; ++y) {
        std::memcpy(firstByte(y), raster.row(y), raster.rowBytes());
    }
    const int stride = static_cast<int>(strideOf(raster, layout));
    void* data = memory_.empty() ? nullptr : firstByte(bounds_.y1);
    const OfxRectI& rod = info.regionOfDefinition;
    properties.add(kOfxPropType, text(kOfxTypeImage), Writer::Host);
    properties.add(kOfxImageEffectPropPixelDepth, text(format_.depth), Writer::Host);
    properties.add(kOfxImageEffectPropComponents, text(format_.components), Writer::Host);
    properties.add(kOfxImageEffectPropPreMultiplication, text(format_.premultiplication),
                   Writer::Host);
    properties.add(kOfxImageEffectPropRenderScale, reals({info.scale.x, info.scale.y}),
                   Writer::Host);
    properties.add(kOfxImagePropPixelAspectRatio, reals({info.pixelAspect}), Writer::Host);
    properties.add(kOfxImagePropData, {PropertyValue(data)}, Writer::Host);
    properties.add(kOfxImagePropBounds, ints({bounds_.x1, bounds_.y1, bounds_.x2, bounds_.y2}),
                   Writer::Host);
    properties.add(kOfxImagePropRegionOfDefinition, ints({rod.x1, rod.y1, rod.x2, rod.y2}),
                   Writer::Host);
    properties.add(kOfxImagePropRowBytes, ints({layout.topDown ? -stride : stride}), Writer::Host);
    properties.add(kOfxImagePropField, text(info.field), Writer::Host);
    properties.add(kOfxImagePropUniqueIdentifier, text(info.identifier), Writer::Host);
    placement_ = placement();
    if (host.traits.tamper) host.traits.tamper(properties);
}

PropertyValues Image::placement() const {
    PropertyValues values;
    for (const char* name : {kOfxImagePropData, kOfxImagePropBounds, kOfxImagePropRowBytes,
                             kOfxImageEffectPropPixelDepth, kOfxImageEffectPropComponents}) {
        const Property* property = properties.find(name);
        if (property) values.insert(values.end(), property->values.begin(), property->values.end());
    }
    return values;
}

bool Image::describesItself() const {
    return placement() == placement_;
}

std::byte* Image::firstByte(int y) {
    return const_cast<std::byte*>(std::as_const(*this).firstByte(y));
}

const std::byte* Image::firstByte(int y) const {
    const std::size_t stride = static_cast<std::size_t>(widthOf(bounds_)) * format_.pixelBytes() +
                               static_cast<std::size_t>(layout_.padding);
    const int place = layout_.topDown ? bounds_.y2 - 1 - y : y - bounds_.y1;
    return memory_.data() + kGuardBytes + static_cast<std::size_t>(place) * stride;
}

Raster Image::raster() const {
    Raster result(bounds_, format_);
    for (int y = bounds_.y1; y < bounds_.y2; ++y) {
        std::memcpy(result.row(y), firstByte(y), result.rowBytes());
    }
    return result;
}

bool Image::guardsIntact() const {
    const auto isGuard = [](std::byte byte) { return byte == kGuard; };
    const std::size_t row = static_cast<std::size_t>(widthOf(bounds_)) * format_.pixelBytes();
    for (int y = bounds_.y1; y < bounds_.y2; ++y) {
        const std::byte* end = firstByte(y) + row;
        if (!std::all_of(end, end + layout_.padding, isGuard)) return false;
    }
    return std::all_of(memory_.begin(), memory_.begin() + kGuardBytes, isGuard) &&
           std::all_of(memory_.end() - kGuardBytes, memory_.end(), isGuard);
}

ImageTable& ImageTable::instance() {
    static ImageTable table;
    return table;
}

void ImageTable::add(const std::shared_ptr<Image>& image) {
    ++image->record().unreleased;
    const std::lock_guard lock(mutex_);
    held_.push_back(image);
}

std::shared_ptr<Image> ImageTable::release(OfxPropertySetHandle handle) {
    const std::lock_guard lock(mutex_);
    const auto found = std::ranges::find_if(
        held_, [&](const auto& image) { return image->properties.handle() == handle; });
    if (found == held_.end()) return nullptr;
    std::shared_ptr<Image> image = std::move(*found);
    held_.erase(found);
    --image->record().unreleased;
    return image;
}

void ImageTable::forget(const RenderRecord& record) {
    const std::lock_guard lock(mutex_);
    std::erase_if(held_, [&](const auto& image) { return &image->record() == &record; });
}

}  // namespace ruvex::ofxhost
