// Properties of one object: names with values of one type each.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "adapters/openfx/ofx_api.h"
#include "tests/openfx/host/handle_table.h"

namespace ruvex::ofxhost {

class Host;

/// The order of the alternatives is that of PropertyType.
using PropertyValue = std::variant<void*, std::string, double, int>;
using PropertyValues = std::vector<PropertyValue>;
enum class PropertyType { Pointer, String, Double, Int };

/// Who may set a property.
enum class Writer { PlugIn, Host };

struct Property {
    PropertyType type = PropertyType::Int;
    PropertyValues values{};
    PropertyValues first{};  ///< What a reset brings back.
    bool growing = false;    ///< The plug-in may set any number of values.
    Writer writer = Writer::PlugIn;
};

/// A plug-in sees it by its handle and finds only what was added. Properties that the host's traits
/// name as missing are never added.
class PropertySet {
public:
    explicit PropertySet(Host& host);
    /// A copy with the same properties and a handle of its own.
    PropertySet(const PropertySet& other);
    PropertySet& operator=(const PropertySet&) = delete;

    OfxPropertySetHandle handle() const { return handle_.get(); }
    Host& host() const { return host_; }

    /// Adds a property with these values, all of one type and at least one.
    void add(const std::string& name, PropertyValues values, Writer writer = Writer::PlugIn);
    /// Adds a property with any number of values, at first none.
    void addGrowing(const std::string& name, PropertyType type);
    void remove(const std::string& name);

    bool has(const std::string& name) const { return properties_.contains(name); }
    /// Null if there is none.
    const Property* find(std::string_view name) const;
    Property* find(std::string_view name);

    /// The value; the type's zero if there is none of this type.
    int number(std::string_view name, std::size_t index = 0) const;
    double real(std::string_view name, std::size_t index = 0) const;
    std::string text(std::string_view name, std::size_t index = 0) const;
    void* pointer(std::string_view name, std::size_t index = 0) const;
    std::vector<std::string> texts(std::string_view name) const;

    /// Sets a property for the host; one that is missing stays so.
    void set(std::string_view name, PropertyValues values);

    const std::map<std::string, Property, std::less<>>& all() const { return properties_; }

private:
    Host& host_;
    std::map<std::string, Property, std::less<>> properties_;
    OwnHandle<HandleKind::Properties, OfxPropertySetHandle> handle_{this};
};

inline PropertyType typeOf(const PropertyValue& value) {
    return static_cast<PropertyType>(value.index());
}

/// Shorter forms for lists of values.
PropertyValues ints(std::initializer_list<int> values);
PropertyValues reals(std::initializer_list<double> values);
PropertyValues texts(std::initializer_list<const char*> values);
inline PropertyValues text(std::string value) {
    return {PropertyValue(std::move(value))};
}

}  // namespace ruvex::ofxhost
