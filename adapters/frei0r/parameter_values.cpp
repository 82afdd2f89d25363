#include "adapters/frei0r/parameter_values.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "adapters/common/message_once.h"
#include "adapters/common/parameter_name.h"
#include "adapters/common/parameter_scale.h"
#include "adapters/frei0r/frame_rate.h"
#include "files/words.h"
#include "parameters/label_match.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"

namespace ruvex::frei0r {
namespace {

constexpr double kNumberTolerance = 1e-6;
/// Half a step of 8 bits, and a little for floats.
constexpr float kChannelTolerance = 0.5f / 255.0f + 1e-6f;
constexpr double kTrueFrom = 0.5;
constexpr double kDefaultRate = 25.0;

/// The value behind a host's pointer, which may be anything.
template <class T>
T read(const void* pointer) {
    T value;
    std::memcpy(&value, pointer, sizeof value);
    return value;
}

template <class T>
void store(void* pointer, const T& value) {
    std::memcpy(pointer, &value, sizeof value);
}

void assign(double& value, ParameterType type, const void* pointer) {
    const auto given = read<double>(pointer);
    if (std::isnan(given)) return;
    value = type == ParameterType::Bool ? (given >= kTrueFrom ? 1.0 : 0.0)
                                        : std::clamp(given, 0.0, 1.0);
}

void assign(Colour& value, ParameterType, const void* pointer) {
    const auto given = read<Colour>(pointer);
    if (std::isnan(given.r) || std::isnan(given.g) || std::isnan(given.b)) return;
    value = {std::clamp(given.r, 0.0f, 1.0f), std::clamp(given.g, 0.0f, 1.0f),
             std::clamp(given.b, 0.0f, 1.0f)};
}

void assign(std::string& value, ParameterType, const void* pointer) {
    const auto* const given = read<const char*>(pointer);
    if (given == nullptr) return;
    const std::size_t length = strnlen(given, kLongestString + 1);
    if (length <= kLongestString) value.assign(given, length);
}

bool isDefault(double value, double defaultValue) {
    return std::abs(value - defaultValue) <= kNumberTolerance;
}

bool isDefault(const Colour& value, const Colour& defaultValue) {
    const auto near = [](float a, float b) { return std::abs(a - b) <= kChannelTolerance; };
    return near(value.r, defaultValue.r) && near(value.g, defaultValue.g) &&
           near(value.b, defaultValue.b);
}

bool isDefault(const std::string& value, const std::string& defaultValue) {
    return value.empty() || labelsMatch(value, defaultValue);
}

bool isDefault(const Value& value, const Value& defaultValue) {
    return std::visit(
        [&](const auto& known) {
            return isDefault(known, std::get<std::decay_t<decltype(known)>>(defaultValue));
        },
        value);
}

void addSettings(const ParameterRow& row, double value, std::vector<looks::Setting>& settings) {
    settings.push_back({row.id, row.controlRange ? adapters::valueAt(row, value) : value});
}

void addSettings(const ParameterRow& red, const Colour& value,
                 std::vector<looks::Setting>& settings) {
    int id = static_cast<int>(red.id);
    for (const float channel : {value.r, value.g, value.b}) {
        settings.push_back({static_cast<ParameterId>(id++), adapters::channelPercent(channel)});
    }
}

void addSettings(const ParameterRow& row, const std::string& value,
                 std::vector<looks::Setting>& settings) {
    const ParsedValue parsed =
        parseValue(row, value.empty() ? formatValue(row, row.defaultValue) : value);
    if (!parsed.message.empty()) adapters::printOnce(parsed.message);
    if (parsed.usable()) settings.push_back({row.id, parsed.value});
}

/// A name in the form in which names are compared: "mask-red" and "Mask Red" are the same.
std::string bareName(std::string_view name) {
    std::string bare = bareLabel(name);
    std::erase(bare, '-');
    return bare;
}

/// The bare names between commas.
std::vector<std::string> namesIn(std::string_view list) {
    std::vector<std::string> names;
    while (!list.empty()) {
        const auto comma = std::min(list.find(','), list.size());
        names.push_back(bareName(list.substr(0, comma)));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return names;
}

}  // namespace

ParameterValues::ParameterValues() {
    for (const ListedParameter& parameter : parameterList()) {
        values_.push_back(parameter.defaultValue);
    }
}

void ParameterValues::set(int index, const void* value) {
    if (index < 0 || static_cast<std::size_t>(index) >= values_.size() || !value) return;
    const auto i = static_cast<std::size_t>(index);
    std::visit([&](auto& known) { assign(known, parameterList()[i].type, value); }, values_[i]);
}

void ParameterValues::get(int index, void* value) const {
    if (index < 0 || static_cast<std::size_t>(index) >= values_.size() || !value) return;
    const Value& known = values_[static_cast<std::size_t>(index)];
    if (const auto* text = std::get_if<std::string>(&known)) return store(value, text->c_str());
    if (const auto* colour = std::get_if<Colour>(&known)) return store(value, *colour);
    store(value, std::get<double>(known));
}

const Value& ParameterValues::valueOf(OwnParameter which) const {
    const auto list = parameterList();
    const auto found = std::ranges::find_if(list, [&](const ListedParameter& parameter) {
        return !parameter.row && parameter.own == which;
    });
    return values_[static_cast<std::size_t>(found - list.begin())];
}

const std::string& ParameterValues::text(OwnParameter which) const {
    return std::get<std::string>(valueOf(which));
}

const std::string& ParameterValues::look() const {
    static const std::string kNone;
    const std::string& file = text(OwnParameter::LookFile);
    if (!file.empty()) return file;
    const std::string& name = text(OwnParameter::Look);
    return labelsMatch(name, "none") ? kNone : name;
}

double ParameterValues::framesPerSecond() const {
    const std::string& given = text(OwnParameter::Fps);
    if (given.empty()) return kDefaultRate;
    if (const auto rate = frameRateIn(given)) return *rate;
    adapters::printOnce("fps takes frames per second, such as 25 or 30000/1001, not " +
                        files::inQuotes(given) + "; 25 is used.");
    return kDefaultRate;
}

TimeUnit ParameterValues::timeUnit() const {
    const std::string& given = text(OwnParameter::TimeUnit);
    if (given.empty() || labelsMatch(given, "auto")) return TimeUnit::Auto;
    if (labelsMatch(given, "seconds")) return TimeUnit::Seconds;
    if (labelsMatch(given, "milliseconds")) return TimeUnit::Milliseconds;
    adapters::printOnce("time-unit takes auto, seconds or milliseconds, not " +
                        files::inQuotes(given) + "; auto is used.");
    return TimeUnit::Auto;
}

bool ParameterValues::effectAlpha() const {
    return std::get<double>(valueOf(OwnParameter::EffectAlpha)) >= kTrueFrom;
}

bool ParameterValues::isOverridden(std::size_t index, const std::vector<std::string>& names) const {
    const ListedParameter& parameter = parameterList()[index];
    if (!isDefault(values_[index], parameter.defaultValue)) return true;
    return std::ranges::any_of(names, [&](const std::string& name) {
        return name == "all" || name == bareName(parameter.name);
    });
}

std::vector<looks::Setting> ParameterValues::valuesOverLook() const {
    std::vector<looks::Setting> settings;
    const auto names = namesIn(text(OwnParameter::Override));
    const auto list = parameterList();
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!list[i].row || !isOverridden(i, names)) continue;
        std::visit([&](const auto& value) { addSettings(*list[i].row, value, settings); },
                   values_[i]);
    }
    return settings;
}

}  // namespace ruvex::frei0r
