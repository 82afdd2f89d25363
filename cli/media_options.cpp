#include "cli/media_options.h"

#include "cli/option_text.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "jobs/job_names.h"

namespace ruvex::cli {
namespace {

template <class Choice>
Choice parseChoice(const std::string& option, const std::string& text, const char* what) {
    if (const auto choice = jobs::choiceNamed<Choice>(text)) return *choice;
    throw UsageError(option + ": " + files::inQuotes(text) + " is not " + what + "; write " +
                     jobs::choicesText<Choice>(" or ") + ".");
}

}  // namespace

media::AlphaForm parseAlpha(const std::string& option, const std::string& text) {
    return parseChoice<media::AlphaForm>(option, text, "a form of alpha");
}

jobs::ResultAlpha parseResultAlpha(const std::string& option, const std::string& text) {
    return parseChoice<jobs::ResultAlpha>(option, text, "a kind of alpha");
}

media::FileKind parseStreamFormat(const std::string& option, const std::string& text) {
    return parseChoice<media::FileKind>(option, text, "a kind of stream");
}

media::FieldOrder parseFieldOrder(const std::string& option, const std::string& text) {
    return parseChoice<media::FieldOrder>(option, text, "an order of fields");
}

jobs::ClipEnds parseEnds(const std::string& option, const std::string& text) {
    return parseChoice<jobs::ClipEnds>(option, text, "a way to continue at the ends of a clip");
}

int parseQuality(const std::string& option, const std::string& text) try {
    return parseWhole(option, text, 1, 100);
} catch (const UsageError& error) {
    throw UsageError(std::string(error.what()) + " 100 is the best quality.");
}

media::ExrPixels parseExrPixels(const std::string& option, const std::string& text) {
    return parseChoice<media::ExrPixels>(option, text, "a type of EXR pixels");
}

media::ExrCompression parseExrCompression(const std::string& option, const std::string& text) {
    return parseChoice<media::ExrCompression>(option, text, "a compression of EXR");
}

media::Depth parseDepth(const std::string& option, const std::string& text) {
    if (text == "8") return media::Depth::Bits8;
    if (text == "16") return media::Depth::S214;
    throw UsageError(option + ": " + files::inQuotes(text) + " is not a depth; write 8 or 16.");
}

}  // namespace ruvex::cli
