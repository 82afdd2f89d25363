#include "adapters/openfx/message.h"

#include <mutex>
#include <set>

#include "adapters/common/message_once.h"
#include "files/words.h"

namespace ruvex::openfx {
namespace {

constexpr std::size_t kMostMessages = 1000;

bool isNewMessage(const std::string& sentence) {
    static std::mutex mutex;
    static std::set<std::string> shown;
    const std::lock_guard lock(mutex);
    return shown.size() < kMostMessages && shown.insert(sentence).second;
}

bool show(const Host& host, OfxImageEffectHandle effect, const std::string& sentence) {
    if (!host.message) return false;
    const std::string text = "V_Ruvex: " + files::printable(sentence);
    const OfxStatus status =
        host.message->message(effect, kOfxMessageWarning, "ruvex", "%s", text.c_str());
    return status == kOfxStatOK || status == kOfxStatReplyYes;
}

}  // namespace

void warn(const Host& host, OfxImageEffectHandle effect, const std::string& sentence) noexcept {
    try {
        if (!isNewMessage(sentence)) return;
        if (!show(host, effect, sentence)) adapters::printOnce(sentence);
    } catch (...) {
        // Without memory there are no messages.
    }
}

}  // namespace ruvex::openfx
