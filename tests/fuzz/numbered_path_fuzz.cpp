// File names with a frame number in them.

#include <algorithm>
#include <limits>

#include "files/numbered_path.h"
#include "tests/fuzz/fuzz.h"

namespace {

using ruvex::files::NumberedPath;
using ruvex::fuzz::demand;

constexpr std::int64_t kNumbers[] = {0, 1, 7, 10, 99999, 16777215, 1234567890123456789};

void demandSequence(const NumberedPath& path) {
    std::filesystem::path before;
    for (const std::int64_t number : kNumbers) {
        const std::filesystem::path file = path.file(number);
        demand(path.fits(file.filename().string()), "the name of a frame is one of the sequence");
        demand(file != before, "no two frames have one name");
        demand(file.string().find(std::to_string(number)) != std::string::npos,
               "the number stands in the name");
        demand(!path.fits(file.filename().string() + "x") || path.text().ends_with('x'),
               "a longer name is another one");
        before = file;
    }
}

/// Digits of the largest number.
constexpr std::size_t kMostDigits = 19;

/// Whether the name is that of the number which some of its digits are.
bool isNameOfANumber(const NumberedPath& path, const std::string& name) {
    for (std::size_t first = 0; first < name.size(); ++first) {
        std::uint64_t number = 0;
        for (std::size_t at = first; at < std::min(name.size(), first + kMostDigits); ++at) {
            if (name[at] < '0' || name[at] > '9') break;
            number = number * 10 + static_cast<std::uint64_t>(name[at] - '0');
            if (number > std::numeric_limits<std::int64_t>::max()) break;
            if (path.file(static_cast<std::int64_t>(number)).filename() == name) return true;
        }
    }
    return false;
}

/// Of the numbers that could stand in a name, one way of writing each counts.
void demandFits(const NumberedPath& path, const std::string& name) {
    constexpr std::size_t kLongest = 60;  // the plain way takes its time
    if (path.fits(name) && name.size() <= kLongest) {
        demand(isNameOfANumber(path, name), "a name that fits is that of a number");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first line is the path, the second some file's name.
    auto words = ruvex::fuzz::wordsOf(ruvex::fuzz::textOf(data, size));
    words.resize(2);
    const NumberedPath path(words[0]);
    demand(path.text() == words[0], "messages show the path as it was given");
    if (path.isPattern()) {
        demand(words[0].find('%') != std::string::npos, "a number has a place");
        demandSequence(path);
        demandFits(path, words[1]);
    } else {
        demand(path.file(7) == path.plain(), "a plain path is the file of every number");
        demand(path.plain() == words[0] || words[0].find("%%") != std::string::npos,
               "only doubled percent signs stand for something else");
    }
    return 0;
}
