#include "cli/render_options.h"

#include <CLI/CLI.hpp>

namespace ruvex::cli {
namespace {

constexpr const char* kFooter = R"(Files, by the ending of their names:
  .png                    stills, 8 or 16 bits a channel
  .rgba8                  raw frames, 4 bytes a pixel: red, green, blue, alpha
  .s214                   raw frames, four little-endian signed 16-bit words a pixel, white 16384
  .mp4 .m4v .mov          video out: H.264, without alpha
  .mkv                    video out: FFV1, without loss, with alpha
  anything else           video in: whatever the FFmpeg libraries read
A number in a name stands for a sequence: shot.%05d.png is shot.00000.png, shot.00001.png, ...
Raw frames have no header; their first row is row 0 of the chain, the picture's bottom line.
Sound is not carried over.

Examples:
  ruvex render clip.mp4 -o poor.mp4 --set "Resolution=40"
  ruvex render clip.mp4 -o going.mkv --key "Resolution=0:100 2:25" --frames 0-49
  ruvex render shot.%05d.png -o out.%05d.png --rate 24 --set "X Edge Method=Wrap"
  ruvex render in.%d.s214 -o out.%d.s214 --size 1920x1080 --workers 4

Exit status: 0 done, 1 the job failed, 2 the command line is wrong, 130 stopped by Ctrl-C.)";

void addText(CLI::App& command, const char* name, std::string& value, const char* type,
             const char* help) {
    command.add_option(name, value, help)->type_name(type);
}

/// Given again for each value; never takes the word after the next.
void addList(CLI::App& command, const char* name, std::vector<std::string>& values,
             const char* type, const char* help) {
    command.add_option(name, values, help)->type_name(type)->allow_extra_args(false);
}

}  // namespace

void declareRenderOptions(CLI::App& command, RenderOptions& options) {
    command.add_option("INPUT", options.input, "Video, PNG or raw frames")->required();
    command.add_option("-o,--output", options.output, "The result; see below for the kinds")
        ->type_name("OUTPUT")
        ->required();
    addList(command, "--set", options.settings, "\"NAME=VALUE\"",
            "A parameter by its label; enumerations by label or number, check boxes on or off. "
            "Repeatable");
    addList(command, "--key", options.keys, "\"NAME=T:V T:V ...\"",
            "Keys of a real parameter, seconds and value; linear in between. Repeatable");
    addText(command, "--frames", options.frames, "A-B",
            "First and last frame, inclusive; all without it. Frame k is at time k / rate");
    addText(command, "--rate", options.rate, "R",
            "Frames a second where the input does not say: 25, 29.97, 30000/1001. 25 without it");
    addText(command, "--size", options.size, "WxH", "Size of raw input frames");
    addText(command, "--depth", options.depth, "8|16",
            "Bits a channel in the chain; by the input without it");
    addText(
        command, "--workers", options.workers, "N",
        "Shares that each picture is cut into; by the machine without it. The same number gives "
        "the same picture on every machine");
    addText(command, "--project-size", options.projectSize, "WxH",
            "Project frame that lengths in parameters refer to; the input's size without it");
    addText(command, "--pixel-aspect", options.pixelAspect, "A",
            "Width of a project pixel over its height; 1 without it");
    addText(command, "--region", options.region, "X,Y,W,H",
            "Render this part only, rows counted from the bottom; the rest is left at zero");
    command.footer(kFooter);
}

}  // namespace ruvex::cli
