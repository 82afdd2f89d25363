#include "bench/television_frame.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>

#include "parameters/ruvex_interface.h"

namespace ruvex::bench {
namespace {

constexpr double kTime = 2.4;

// The frame that is held by looks that repeat frames. It is not made anew: what an effect leaves in
// it costs the next render as much.
struct HeldFrame : runtime::InputProvider {
    explicit HeldFrame(ComPtr<CDSMemoryImage> held) : image(std::move(held)) {}
    ComPtr<IDSImage> imageAt(double) override { return image; }

    ComPtr<CDSMemoryImage> image;
};

runtime::EffectSession openSession(const runtime::Project& project,
                                   const ComPtr<CDSMemoryImage>& held) {
    return runtime::EffectSession({.module = runtime::Module::load(RUVEX_MODULE_FILE),
                                   .project = project,
                                   .provider = std::make_shared<HeldFrame>(held)});
}

}  // namespace

TelevisionFrame::TelevisionFrame(FrameSize size, const GUID& format, int workers, int preset)
    : project_{.width = size.width, .height = size.height},
      master_(runtime::makeProjectImage(project_, size.width, size.height, format)),
      input_(runtime::makeProjectImage(project_, size.width, size.height, format)),
      output_(runtime::makeProjectImage(project_, size.width, size.height, format)),
      session_(openSession(project_, input_)) {
    static_cast<IRuvexControl*>(session_.ownInterface(kRuvexControlId))->setWorkerCount(workers);
    for (const PresetRow& line : presetTable()) {
        if (const auto value = line.value(preset)) {
            session_.setValue(row(line.id).identifier, *value);
        }
    }
    std::byte* bytes = master_->bytes();
    for (std::size_t i = 0; i < master_->byteCount(); ++i) {
        bytes[i] = static_cast<std::byte>(i * 2654435761u >> 24 & 0x3F);
    }
}

void TelevisionFrame::set(const Settings& settings) {
    for (const auto& [id, value] : settings) session_.setValue(row(id).identifier, value);
}

double TelevisionFrame::copySource() {
    return seconds([&] {
        std::memcpy(input_->bytes(), master_->bytes(), master_->byteCount());
        benchmark::ClobberMemory();
    });
}

double TelevisionFrame::render() {
    runtime::RenderRequest request;
    request.seconds = kTime;
    request.input = input_;
    request.output = output_;
    return seconds([&] { session_.render(request); });
}

}  // namespace ruvex::bench
