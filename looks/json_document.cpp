#include "looks/json_document.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "files/read_file.h"
#include "files/words.h"

namespace ruvex::looks {
namespace {

/// Deeper than any valid file, and shallow enough to be printed into a message by recursion.
constexpr std::size_t kDeepest = 16;

constexpr std::size_t kLongestMessage = 1000;
constexpr std::size_t kLongestDetail = 400;

/// The library's message without the prefix that names the library's error.
std::string detailOf(const Json::exception& error) {
    const std::string text = error.what();
    const auto end = text.find("] ");
    return files::printable(end == std::string::npos ? text : text.substr(end + 2), kLongestDetail);
}

/// Builds a document from the parser's events. The library's own builder looks each name up among
/// the members before it, and takes the last of two of one name; this one takes a time that grows
/// with the length of the text alone, and refuses two of one name. The methods' names are the
/// library's.
class Builder {
public:
    using number_integer_t = Json::number_integer_t;
    using number_unsigned_t = Json::number_unsigned_t;
    using number_float_t = Json::number_float_t;
    using string_t = Json::string_t;
    using binary_t = Json::binary_t;

    Json take() { return std::move(document_); }

    bool null() { return add(nullptr); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(number_integer_t value) { return add(value); }
    bool number_unsigned(number_unsigned_t value) { return add(value); }
    bool number_float(number_float_t value, const string_t&) { return add(value); }
    bool string(string_t& value) { return add(std::move(value)); }
    bool binary(binary_t& value) { return add(std::move(value)); }

    bool start_object(std::size_t) { return open(Json::object()); }
    bool start_array(std::size_t) { return open(Json::array()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(string_t& name) {
        if (!open_.back().names.insert(name).second) {
            throw JsonError(files::inQuotes(name) + " occurs twice.");
        }
        name_ = std::move(name);
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const Json::exception& error) {
        throw JsonError("this is not valid JSON: " + detailOf(error) + ".");
    }

private:
    /// An object or an array that has not ended. It is filled here and then moved to its place:
    /// the members of an object that is still filled may move in memory.
    struct Open {
        Json json;
        std::string name;                         ///< Its own, if it is a member of an object.
        std::unordered_set<std::string> names{};  ///< Of its members.
    };

    bool add(Json value) {
        if (open_.empty()) {
            document_ = std::move(value);
        } else if (Json& json = open_.back().json; json.is_array()) {
            json.push_back(std::move(value));
        } else {
            using Members = std::vector<std::pair<const std::string, Json>>;
            Members& members = json.get_ref<Json::object_t&>();
            members.emplace_back(std::move(name_), std::move(value));
        }
        return true;
    }

    bool open(Json empty) {
        if (open_.size() == kDeepest) throw JsonError("the brackets are nested too deeply.");
        open_.push_back({std::move(empty), std::move(name_)});
        return true;
    }

    bool close() {
        Open ended = std::move(open_.back());
        open_.pop_back();
        name_ = std::move(ended.name);
        return add(std::move(ended.json));
    }

    Json document_;
    std::vector<Open> open_;  ///< The innermost last.
    std::string name_;        ///< Of the member that comes next.
};

}  // namespace

JsonError::JsonError(const std::string& sentence)
    : std::runtime_error(files::printable(sentence, kLongestMessage)) {}

Json parseJson(const std::string& text) {
    Builder builder;
    Json::sax_parse(text, &builder);
    return builder.take();
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
