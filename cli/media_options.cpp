#include "cli/media_options.h"

#include "cli/usage_error.h"

namespace ruvex::cli {

media::AlphaForm parseAlpha(const std::string& option, const std::string& text) {
    if (text == "straight") return media::AlphaForm::Straight;
    if (text == "premultiplied") return media::AlphaForm::Premultiplied;
    throw UsageError(option + ": '" + text +
                     "' is no form of alpha; write straight or premultiplied.");
}

}  // namespace ruvex::cli
