// A reader of XML that is strict about its form and knows nothing of its meaning.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ruvex::cli {

struct XmlElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text;  ///< What stands directly in it.
};

/// The elements in the order in which they begin. Throws std::runtime_error unless the text is one
/// element and everything in it is closed, quoted, escaped and given once. Knows no comments,
/// declarations or processing instructions.
std::vector<XmlElement> readXml(std::string_view text);

}  // namespace ruvex::cli
