// Raw frames, from streams and from files. The first byte tells size and depth, the rest are
// pixels.

#include <algorithm>
#include <cstring>

#include "media/media_error.h"
#include "media/stills/raw_frame.h"
#include "media/streams/stream_reader.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex::media;
using ruvex::fuzz::demand;

struct Layout {
    FrameSize size;
    Depth depth;
    std::size_t bytes() const {
        return bytesPerPixel(depth) * static_cast<std::size_t>(size.width * size.height);
    }
};

Layout layoutOf(std::uint8_t first) {
    return {{first % 4 + 1, first / 4 % 4 + 1}, first & 0x80 ? Depth::S214 : Depth::Bits8};
}

template <class Read>
auto accepted(const std::string& name, Read read) {
    return ruvex::fuzz::unlessRefused<MediaError>(read, [&](std::string_view sentence) {
        ruvex::fuzz::demandPrintable(sentence);
        ruvex::fuzz::demandNamed(sentence, name);
    });
}

bool holds(const Frame& frame, std::string_view bytes) {
    return frame.bytes().size() == bytes.size() &&
           std::memcmp(frame.bytes().data(), bytes.data(), bytes.size()) == 0;
}

void tryStream(std::string_view pixels, const Layout& layout) {
    const ruvex::fuzz::MemoryFile file(pixels);
    RawStream stream(InputStream(file.descriptor(), "clip"), layout.size, layout.depth);
    std::string_view rest = pixels;
    Frame frame;
    for (; rest.size() >= layout.bytes(); rest.remove_prefix(layout.bytes())) {
        const bool found = stream.next(frame);
        demand(found && holds(frame, rest.substr(0, layout.bytes())), "frames are the bytes");
    }
    const auto last = accepted("clip", [&] { return stream.next(frame); });
    demand(last.has_value() == rest.empty(), "half a frame is refused");
    demand(!last || !*last, "a stream that is whole ends");
}

void tryFile(std::string_view pixels, const Layout& layout) {
    const ruvex::fuzz::MemoryFile file(pixels);
    const auto frame =
        accepted(file.path(), [&] { return readRawFrame(file.path(), layout.size, layout.depth); });
    demand(frame.has_value() == (pixels.size() == layout.bytes()), "a file holds one frame");
    demand(!frame || holds(*frame, pixels), "a frame is the file's bytes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view pixels = ruvex::fuzz::textOf(data + 1, size - 1);
    tryStream(pixels, layoutOf(data[0]));
    tryFile(pixels, layoutOf(data[0]));
    return 0;
}
