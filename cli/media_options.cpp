#include "cli/media_options.h"

#include "cli/usage_error.h"

namespace ruvex::cli {

media::AlphaForm parseAlpha(const std::string& option, const std::string& text) {
    if (text == "straight") return media::AlphaForm::Straight;
    if (text == "premultiplied") return media::AlphaForm::Premultiplied;
    throw UsageError(option + ": '" + text +
                     "' is no form of alpha; write straight or premultiplied.");
}

media::FileKind parseStreamFormat(const std::string& option, const std::string& text,
                                  const std::filesystem::path& path) {
    if (media::fileKind(path) != media::FileKind::Stream) {
        throw UsageError(option + " is for streams (-); " + path.string() +
                         " says by its ending what it is.");
    }
    if (text == "y4m") return media::FileKind::Y4m;
    if (text == "rgba8") return media::FileKind::RawRgba8;
    if (text == "s214") return media::FileKind::RawS214;
    throw UsageError(option + ": '" + text + "' is no kind of stream; write y4m, rgba8 or s214.");
}

media::FieldOrder parseFieldOrder(const std::string& option, const std::string& text) {
    if (text == "top") return media::FieldOrder::TopFirst;
    if (text == "bottom") return media::FieldOrder::BottomFirst;
    if (text == "none") return media::FieldOrder::Progressive;
    throw UsageError(option + ": '" + text + "' is no order of fields; write top, bottom or none.");
}

std::string toText(media::FieldOrder order) {
    return order == media::FieldOrder::TopFirst ? "top field first" : "bottom field first";
}

}  // namespace ruvex::cli
