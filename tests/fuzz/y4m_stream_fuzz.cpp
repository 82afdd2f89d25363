// Whole Y4M streams.

#include "media/media_error.h"
#include "media/streams/y4m_stream.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex::media;
using ruvex::fuzz::demand;

/// More takes the memory of a real clip, not another way through the reader; sizes beyond what the
/// libraries hold are of interest again.
constexpr std::int64_t kSmall = 1 << 14;
constexpr std::int64_t kTooLarge = std::int64_t{1} << 28;

template <class Read>
auto accepted(Read read) {
    return ruvex::fuzz::unlessRefused<MediaError>(read, [](std::string_view sentence) {
        ruvex::fuzz::demandPrintable(sentence);
        demand(sentence.find("clip.y4m") != std::string_view::npos, "a refusal names the clip");
    });
}

/// Pixels of the size that the first line tells; 0 where it tells none.
std::int64_t pixelsOf(std::string_view bytes) {
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    const auto header = accepted([&] { return parseY4mHeader(line, "clip.y4m"); });
    return header ? std::int64_t{header->size.width} * header->size.height : 0;
}

std::size_t readAll(Y4mStream& stream) {
    std::size_t count = 0;
    Frame frame;
    while (const auto found = accepted([&] { return stream.next(frame); })) {
        if (!*found) break;
        demand(frame.size() == stream.info().size, "frames have the size that was told");
        demand(frame.depth() == stream.info().depth, "frames have the depth that was told");
        ++count;
    }
    return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = ruvex::fuzz::textOf(data, size);
    const std::int64_t pixels = pixelsOf(bytes);
    if (pixels > kSmall && pixels <= kTooLarge) return 0;
    const ruvex::fuzz::MemoryFile file(bytes);
    auto stream = accepted([&] {
        return std::make_unique<Y4mStream>(InputStream(file.descriptor(), "clip.y4m"),
                                           std::nullopt);
    });
    demand(!stream || pixels <= kSmall, "what no library holds is refused");
    if (!stream) return 0;
    const std::size_t frames = readAll(**stream);
    demand(frames * static_cast<std::size_t>(pixels) <= size, "no frame is made of nothing");
    return 0;
}
