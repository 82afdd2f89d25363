#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

#include "tests/fuzz/utf8_twin.h"

namespace ruvex::fuzz {

void demand(bool kept, std::string_view promise) {
    if (!kept) {
        std::fprintf(stderr, "A promise is broken: %.*s\n", static_cast<int>(promise.size()),
                     promise.data());
        std::abort();
    }
}

void demandPrintable(std::string_view sentence) {
    demand(!sentence.empty(), "a refusal says why");
    demand(isPrintableUtf8(sentence), "a refusal can be printed");
}

void demandNamed(std::string_view sentence, std::string_view name) {
    demand(sentence.starts_with(name), "a refusal begins with what it is about");
    demand(sentence.size() > name.size() + 2, "a refusal says why");
}

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

std::string wordOf(std::string_view text) {
    std::string word(text);
    std::erase(word, '\0');
    return word;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        words.push_back(wordOf(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    words.push_back(wordOf(text));
    return words;
}

MemoryFile::MemoryFile(std::string_view bytes) : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) {
    demand(descriptor_ >= 0, "there is room for a file in memory");
    const auto written = write(descriptor_, bytes.data(), bytes.size());
    demand(written == static_cast<ssize_t>(bytes.size()), "the file in memory takes its bytes");
    demand(lseek(descriptor_, 0, SEEK_SET) == 0, "the file in memory can be read from its start");
}

MemoryFile::~MemoryFile() {
    close(descriptor_);
}

std::string MemoryFile::path() const {
    return "/proc/self/fd/" + std::to_string(descriptor_);
}

}  // namespace ruvex::fuzz
