#include "tests/cli/xml_check.h"

#include <stdexcept>

namespace ruvex::cli {
namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    std::vector<XmlElement> read() {
        element();
        skipBlanks();
        require(rest_.empty(), "something follows the last element");
        return std::move(elements_);
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        throw std::runtime_error(what + " before: " + std::string(rest_.substr(0, 60)));
    }
    void require(bool good, const char* what) const {
        if (!good) fail(what);
    }

    bool takes(std::string_view mark) {
        if (!rest_.starts_with(mark)) return false;
        rest_.remove_prefix(mark.size());
        return true;
    }
    bool skipBlanks() {
        const auto blanks = std::min(rest_.find_first_not_of(" \n\t"), rest_.size());
        rest_.remove_prefix(blanks);
        return blanks > 0;
    }

    std::string name() {
        constexpr auto kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
        require(rest_.find_first_of(kLetters) == 0, "a name is missing");
        const auto length = rest_.find_first_not_of(std::string(kLetters) + "0123456789-_:.");
        const std::string found(rest_.substr(0, length));
        rest_.remove_prefix(found.size());
        return found;
    }

    char entity() {
        for (const auto& [mark, c] : {std::pair{"&amp;", '&'},
                                      {"&lt;", '<'},
                                      {"&gt;", '>'},
                                      {"&quot;", '"'},
                                      {"&apos;", '\''}}) {
            if (takes(mark)) return c;
        }
        fail("an unknown entity");
    }

    char character() {
        require(!rest_.empty() && rest_[0] != '<', "text ends in the middle");
        if (rest_[0] == '&') return entity();
        const char c = rest_[0];
        require(c < 0 || c >= ' ' || c == '\n' || c == '\t', "a control character");
        rest_.remove_prefix(1);
        return c;
    }

    void attribute(XmlElement& owner) {
        const std::string key = name();
        require(takes("=\""), "an attribute without a quoted value");
        std::string value;
        while (!takes("\"")) value += character();
        require(owner.attributes.emplace(key, value).second, "an attribute is given twice");
    }

    void element() {
        require(takes("<"), "an element is missing");
        const std::size_t index = elements_.size();
        elements_.emplace_back().name = name();
        while (skipBlanks() && !rest_.starts_with("/") && !rest_.starts_with(">")) {
            attribute(elements_[index]);
        }
        if (takes("/>")) return;
        require(takes(">"), "a tag does not end");
        content(index);
    }

    void content(std::size_t index) {
        while (!takes("</")) {
            rest_.starts_with("<") ? element() : void(elements_[index].text += character());
        }
        require(name() == elements_[index].name, "another element is closed than was opened");
        require(takes(">"), "a closing tag does not end");
    }

    std::string_view rest_;
    std::vector<XmlElement> elements_;
};

}  // namespace

std::vector<XmlElement> readXml(std::string_view text) {
    return Reader(text).read();
}

}  // namespace ruvex::cli
