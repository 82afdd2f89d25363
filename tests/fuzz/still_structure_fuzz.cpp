// Whether the file of a still is all there: PNG, TIFF, EXR, DPX, JPEG.

#include <span>

#include "media/stills/still_structure.h"
#include "tests/fuzz/fuzz.h"

namespace {

using ruvex::fuzz::demand;
using ruvex::media::FileKind;
using ruvex::media::stillFault;

constexpr FileKind kKinds[] = {FileKind::Png, FileKind::Tiff, FileKind::Exr, FileKind::Dpx,
                               FileKind::Jpeg};

std::string fault(FileKind kind, std::string_view file) {
    return stillFault(kind, std::as_bytes(std::span(file)));
}

/// Every kind's marks take more bytes than this.
constexpr std::size_t kFew = 5;

void tryKind(FileKind kind, std::string_view file) {
    const std::string said = fault(kind, file);
    if (!said.empty()) {
        ruvex::fuzz::demandPrintable(said);
        demand(said.back() == '.', "a fault is a sentence");
        return;
    }
    demand(!fault(kind, file.substr(0, kFew)).empty(), "a few bytes are no whole picture");
    demand(fault(kind, std::string(file) + std::string(9, '\0')).empty(),
           "bytes behind a whole picture do it no harm");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    int whole = 0;
    for (const FileKind kind : kKinds) {
        tryKind(kind, ruvex::fuzz::textOf(data, size));
        whole += fault(kind, ruvex::fuzz::textOf(data, size)).empty() ? 1 : 0;
    }
    demand(whole <= 1, "a picture is of one kind");
    return 0;
}
