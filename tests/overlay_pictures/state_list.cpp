#include "tests/overlay_pictures/state_list.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace ruvex::test {
namespace {

constexpr char kGreyWord[] = "grey", kGradientWord[] = "gradient";
constexpr char kDrawnWord[] = "drawn", kEmptyWord[] = "empty";
/// A frame of the project has fewer pixels on each side.
constexpr int kLargestSide = 4096;

bool isOneOf(const std::string& word, const char* first, const char* second) {
    return word == first || word == second;
}

/// The rest of a line "state".
bool readState(std::istringstream& words, StatePicture& picture) {
    char by = 0;
    std::string backdrop, drawn;
    words >> picture.name >> picture.width >> by >> picture.height >> backdrop >> drawn;
    picture.backdrop = backdrop == kGreyWord ? Backdrop::Grey : Backdrop::Gradient;
    picture.drawn = drawn == kDrawnWord;
    const auto isSide = [](int side) { return side > 0 && side <= kLargestSide; };
    return words && by == 'x' && isSide(picture.width) && isSide(picture.height) &&
           isOneOf(backdrop, kGreyWord, kGradientWord) && isOneOf(drawn, kDrawnWord, kEmptyWord);
}

/// Adds what one line says.
void readLine(const std::string& line, std::vector<StatePicture>& states) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    bool good = false;
    if (kind == "state") {
        StatePicture picture;
        good = readState(words, picture) &&
               std::ranges::find(states, picture.name, &StatePicture::name) == states.end();
        states.push_back(picture);
    } else if (kind == "text" && !states.empty()) {
        TextArea area;
        words >> area.x >> area.y >> area.width >> area.height;
        good = static_cast<bool>(words);
        states.back().texts.push_back(area);
    }
    if (!good) throw std::runtime_error("a list of states has the line \"" + line + "\"");
}

}  // namespace

std::string linesOf(const StatePicture& picture) {
    std::ostringstream out;
    out << "state " << picture.name << ' ' << picture.width << 'x' << picture.height << ' '
        << (picture.backdrop == Backdrop::Grey ? kGreyWord : kGradientWord) << ' '
        << (picture.drawn ? kDrawnWord : kEmptyWord) << '\n';
    for (const TextArea& area : picture.texts) {
        out << "text " << area.x << ' ' << area.y << ' ' << area.width << ' ' << area.height
            << '\n';
    }
    return out.str();
}

std::string endLine(std::size_t states) {
    return "end: overlay_states " + std::to_string(states) + "\n";
}

std::vector<StatePicture> readStateList(const std::filesystem::path& folder) {
    const std::string file = (folder / kStateList).string();
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file);
    std::vector<StatePicture> states;
    std::string line;
    while (std::getline(in, line) && !line.starts_with("end: ")) readLine(line, states);
    if (line + "\n" != endLine(states.size())) {
        throw std::runtime_error(file + " does not end as it should");
    }
    return states;
}

}  // namespace ruvex::test
