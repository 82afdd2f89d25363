#include "cli/option_group.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "cli/value_kind.h"

namespace ruvex::cli {
namespace {

struct GroupedName {
    const char* name;
    OptionGroup group;
};

using enum OptionGroup;

constexpr GroupedName kGroupedNames[] = {
    {"--output", InAndOut},
    {"--input-format", InAndOut},
    {"--output-format", InAndOut},
    {"--size", InAndOut},
    {"--alpha", InAndOut},
    {"--result-alpha", InAndOut},
    {"--output-size", InAndOut},
    {"--codec", InAndOut},
    {"--mute", InAndOut},
    {"--quality", InAndOut},
    {"--encoder-speed", InAndOut},
    {"--encoder-threads", InAndOut},
    {"--exr-pixels", InAndOut},
    {"--exr-compression", InAndOut},
    {"--field-order", InAndOut},
    {"--csv", InAndOut},
    {"--plot", InAndOut},
    {"--preset", OptionGroup::Look},
    {"--params", OptionGroup::Look},
    {"--key-offset", OptionGroup::Look},
    {"--set", OptionGroup::Look},
    {"--key", OptionGroup::Look},
    {"--save-params", OptionGroup::Look},
    {"--frames", Time},
    {"--rate", Time},
    {"--ends", Time},
    {"--depth", Picture},
    {"--project-size", Picture},
    {"--pixel-aspect", Picture},
    {"--region", Picture},
    {"--fields", Picture},
    {"--mask", Picture},
    {"--side-by-side", Picture},
    {"--split", Picture},
    {"--split-at", Picture},
    {"--folder", OptionGroup::Farm},
    {"--chunk", OptionGroup::Farm},
    {"--partition", OptionGroup::Farm},
    {"--account", OptionGroup::Farm},
    {"--time", OptionGroup::Farm},
    {"--join-time", OptionGroup::Farm},
    {"--max-tasks", OptionGroup::Farm},
    {"--sbatch", OptionGroup::Farm},
    {"--keep-chunks", OptionGroup::Farm},
    {"--no-submit", OptionGroup::Farm},
    {"--workers", Work},
    {"--jobs", Work},
    {"--resume", Work},
    {"--dry-run", Work},
    {"--save-job", Work},
    {"--quiet", Work},
    {"--verbose", Work},
};

}  // namespace

OptionGroup groupOf(const Option& option) {
    if (isPlace(option)) return InAndOut;
    const std::string name = longName(option);
    const auto found = std::ranges::find_if(
        kGroupedNames, [&](const GroupedName& listed) { return name == listed.name; });
    return found == std::end(kGroupedNames) ? Other : found->group;
}

}  // namespace ruvex::cli
