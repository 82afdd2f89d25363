// The first line of a Y4M stream.

#include "media/media_error.h"
#include "media/streams/y4m_header.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex::media;
using ruvex::fuzz::demand;

std::optional<Y4mHeader> accepted(std::string_view line) {
    return ruvex::fuzz::unlessRefused<MediaError>(
        [&] { return parseY4mHeader(line, "clip.y4m"); },
        [](std::string_view sentence) {
            ruvex::fuzz::demandPrintable(sentence);
            demand(sentence.find("clip.y4m") != std::string_view::npos, "a refusal names the clip");
        });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view line = ruvex::fuzz::textOf(data, size);
    const auto header = accepted(line);
    if (!header) return 0;
    demand(line.starts_with(kY4mMagic), "a header begins with the format's name");
    checkFrameSize(header->size, Depth::Bits8, "A size that was taken");
    demand(!header->rate || header->rate->num > 0, "a rate is above 0");
    demand(header->pixelAspect.num > 0 && header->pixelAspect.den > 0, "an aspect is above 0");
    const std::string text = formatY4mHeader(*header);
    demand(text.size() <= kLongestY4mLine && text.find('\n') + 1 == text.size(),
           "a header is one line");
    const auto again = accepted(std::string_view(text).substr(0, text.size() - 1));
    demand(again && *again == *header, "a header reads back");
    return 0;
}
