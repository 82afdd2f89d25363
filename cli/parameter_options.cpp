#include "cli/parameter_options.h"

namespace ruvex::cli {

OptionTable parameterOptions(ParameterOptions& options) {
    return {
        {"-p,--preset", "NAME|FILE",
         "A look of 'ruvex presets' by its name, or a look file by its path; --params, --set and "
         "--key go over it, in this order. Its project frame is used without --project-size",
         &options.preset},
        {"--params", "FILE",
         "Values and keys from a look file, as --save-params writes it; parameters that the "
         "file does not name are left as they are",
         &options.params},
        {"--key-offset", "SECONDS",
         "Add this to the times of the keys of --preset and --params, to fit a look to a cut; may "
         "be negative; default: 0. Keys of --key stay where they are",
         &options.keyOffset},
        {"-s,--set", "\"NAME=VALUE\"",
         "A parameter by its label; enumerations by label or number, check boxes on or off. "
         "Repeatable",
         &options.settings},
        {"-k,--key", "\"NAME=T:V T:V ...\"",
         "Keys of a real parameter, seconds and value; linear in between. T:V:hold keeps its value "
         "until the next key, T:V:smooth eases to the next one. Repeatable",
         &options.keys},
        {"--save-params", "FILE",
         "Write the values and keys of all parameters, as they are in use, into a look file",
         &options.saveParams},
    };
}

}  // namespace ruvex::cli
