#include "adapters/openfx/message.h"

#include "adapters/common/message_once.h"
#include "files/words.h"

namespace ruvex::openfx {
namespace {

bool show(const Host& host, OfxImageEffectHandle effect, const std::string& sentence) {
    if (!host.message) return false;
    const std::string text = "V_Ruvex: " + files::printable(sentence);
    const OfxStatus status = host.message(effect, kOfxMessageWarning, "ruvex", "%s", text.c_str());
    return status == kOfxStatOK || status == kOfxStatReplyYes;
}

}  // namespace

void warn(const Host& host, OfxImageEffectHandle effect, const std::string& sentence) noexcept {
    try {
        if (!adapters::isFirstTime(sentence)) return;
        if (!show(host, effect, sentence)) adapters::printSentence(sentence);
    } catch (...) {
        // Without memory there are no messages.
    }
}

}  // namespace ruvex::openfx
