#include "adapters/common/message_once.h"

#include <cstdio>
#include <mutex>
#include <set>

#include "files/words.h"

namespace ruvex::adapters {
namespace {

constexpr std::size_t kMostSentences = 1000;

/// Whether the sentence is new, and there is room for it.
bool isNew(const std::string& sentence) {
    static std::mutex mutex;
    static std::set<std::string> printed;
    const std::lock_guard lock(mutex);
    return printed.size() < kMostSentences && printed.insert(sentence).second;
}

}  // namespace

void printOnce(const std::string& sentence) {
    if (isNew(sentence)) std::fprintf(stderr, "V_Ruvex: %s\n", files::printable(sentence).c_str());
}

}  // namespace ruvex::adapters
