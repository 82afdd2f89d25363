#include "looks/json_document.h"

#include <unordered_set>
#include <vector>

#include "files/whole_file.h"
#include "files/words.h"

namespace ruvex::looks {
namespace {

/// Deeper than any valid file, and shallow enough to be printed into a message by recursion.
constexpr int kDeepest = 16;

constexpr std::size_t kLongestMessage = 1000;
constexpr std::size_t kLongestDetail = 400;

using Event = Json::parse_event_t;

/// Refuses two members of one name: the library would silently take the last one.
class DuplicateCheck {
public:
    void watch(Event event, const Json& parsed) {
        if (event == Event::object_start) {
            names_.emplace_back();
        } else if (event == Event::object_end) {
            names_.pop_back();
        } else if (event == Event::key) {
            const auto name = parsed.get<std::string>();
            if (!names_.back().insert(name).second) {
                throw JsonError(files::inQuotes(name) + " occurs twice.");
            }
        }
    }

private:
    std::vector<std::unordered_set<std::string>> names_;  ///< Of the open objects, innermost last.
};

/// The library's message without the prefix that names the library's error.
std::string detailOf(const Json::exception& error) {
    const std::string text = error.what();
    const auto end = text.find("] ");
    return files::printable(end == std::string::npos ? text : text.substr(end + 2), kLongestDetail);
}

}  // namespace

JsonError::JsonError(const std::string& sentence)
    : std::runtime_error(files::printable(sentence, kLongestMessage)) {}

Json parseJson(const std::string& text) {
    DuplicateCheck duplicates;
    try {
        return Json::parse(text, [&](int depth, Event event, Json& parsed) {
            if (depth > kDeepest) throw JsonError("the brackets are nested too deeply.");
            duplicates.watch(event, parsed);
            return true;
        });
    } catch (const Json::exception& error) {
        throw JsonError("this is not valid JSON: " + detailOf(error) + ".");
    }
}

std::string readJsonText(const std::filesystem::path& file) {
    constexpr std::size_t kMostBytes = std::size_t{16} << 20;
    return files::readText(file, kMostBytes);
}

bool isUtf8(const std::string& text) {
    try {
        static_cast<void>(Json(text).dump());
        return true;
    } catch (const Json::type_error&) {
        return false;
    }
}

}  // namespace ruvex::looks
