#include "adapters/common/message_once.h"

#include <cstdio>
#include <mutex>
#include <set>

#include "files/words.h"

namespace ruvex::adapters {

bool isFirstTime(const std::string& sentence) {
    constexpr std::size_t kMostSentences = 1000;
    static std::mutex mutex;
    static std::set<std::string> known;
    const std::lock_guard lock(mutex);
    return known.size() < kMostSentences && known.insert(sentence).second;
}

void printSentence(const std::string& sentence) {
    std::fprintf(stderr, "V_Ruvex: %s\n", files::printable(sentence).c_str());
}

void printOnce(const std::string& sentence) {
    if (isFirstTime(sentence)) printSentence(sentence);
}

void reportOnce(const char* sentence) noexcept {
    try {
        printOnce(sentence);
    } catch (...) {
    }
}

}  // namespace ruvex::adapters
