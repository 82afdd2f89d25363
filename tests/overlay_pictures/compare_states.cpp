#include "tests/overlay_pictures/compare_states.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tests/overlay_pictures/state_list.h"

namespace ruvex::test {
namespace {

/// A picture with fewer pixels than this proves nothing.
constexpr int kFewestLit = 20;
constexpr int kFewestLitText = 20;
/// The share of a picture that text areas may have: a tenth.
constexpr int kTextShare = 10;

std::ostream& operator<<(std::ostream& out, const Rgb& pixel) {
    return out << '(' << int{pixel.red} << ", " << int{pixel.green} << ", " << int{pixel.blue}
               << ')';
}

/// What is wrong with one picture by itself; empty if nothing is.
std::string faultOf(const StatePicture& picture) {
    const int lit = picture.lit();
    if (!picture.drawn && lit > 0) return std::to_string(lit) + " pixels are drawn instead of none";
    if (picture.drawn && lit < kFewestLit) return "only " + std::to_string(lit) + " pixels are lit";
    if (picture.textPixels() * kTextShare > picture.width * picture.height) {
        return "text takes too much of it";
    }
    for (const TextArea& area : picture.texts) {
        if (picture.litText(area) < kFewestLitText) return "a text is missing";
    }
    return {};
}

/// How the pixels outside of the text areas differ; empty if they are equal.
std::string differenceOf(const StatePicture& first, const StatePicture& second) {
    int count = 0;
    std::ostringstream words;
    for (int y = 0; y < first.height; ++y) {
        for (int x = 0; x < first.width; ++x) {
            if (first.at(x, y) == second.at(x, y) || first.isText(x, y)) continue;
            if (count++ > 0) continue;
            words << " pixels differ, the first (" << x << ", " << y
                  << ") from the left and the bottom: " << first.at(x, y) << " and "
                  << second.at(x, y);
        }
    }
    return count == 0 ? std::string() : std::to_string(count) + words.str();
}

const StatePicture* findState(const std::vector<StatePicture>& states, const std::string& name) {
    const auto found = std::ranges::find(states, name, &StatePicture::name);
    return found == states.end() ? nullptr : &*found;
}

/// One state in both folders.
class StatePair {
public:
    StatePair(const StatePicture* first, const StatePicture* second)
        : first_(first), second_(second) {}

    std::string fault(const std::filesystem::path& firstFolder,
                      const std::filesystem::path& secondFolder) const {
        if (!first_ || !second_)
            return "is missing in " + (first_ ? secondFolder : firstFolder).string();
        if (linesOf(*first_) != linesOf(*second_)) return "is described differently";
        StatePicture first = *first_, second = *second_;
        readPixels(first, firstFolder);
        readPixels(second, secondFolder);
        for (const StatePicture* picture : {&first, &second}) {
            if (const std::string own = faultOf(*picture); !own.empty()) return own;
        }
        return differenceOf(first, second);
    }

private:
    const StatePicture* first_;
    const StatePicture* second_;
};

}  // namespace

int compareStates(const std::filesystem::path& first, const std::filesystem::path& second) {
    const std::vector<StatePicture> firstStates = readStateList(first);
    const std::vector<StatePicture> secondStates = readStateList(second);
    std::set<std::string> names;
    for (const auto* states : {&firstStates, &secondStates}) {
        if (states->empty()) throw std::runtime_error("a folder has no states");
        for (const StatePicture& state : *states) names.insert(state.name);
    }
    int failed = 0;
    for (const std::string& name : names) {
        const StatePair pair(findState(firstStates, name), findState(secondStates, name));
        const std::string fault = pair.fault(first, second);
        if (fault.empty()) continue;
        ++failed;
        std::printf("%s: %s\n", name.c_str(), fault.c_str());
    }
    return failed;
}

}  // namespace ruvex::test
