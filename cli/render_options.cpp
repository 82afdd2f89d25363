#include "cli/render_options.h"

#include "cli/declare_option.h"

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
  ruvex render clip.mp4 -o bad.mp4 --preset "Bad Colour TV"
  ruvex render clip.mp4 -o going.mkv --key "Resolution=0:100 2:25" --frames 0-49
  ruvex render shot.%05d.png -o out.%05d.png --rate 24 --set "X Edge Method=Wrap"
  ruvex render clip.mp4 -o rewound.mp4 --key "Play Speed=0:100 1:-100" --ends hold
  ruvex render in.%d.s214 -o out.%d.s214 --size 1920x1080 --workers 4

Exit status: 0 done, 1 the job failed, 2 the command line is wrong, 130 stopped by Ctrl-C.)";

}  // namespace

void declareRenderOptions(CLI::App& command, RenderOptions& options) {
    command.add_option("INPUT", options.input, "Video, PNG or raw frames")->required();
    command.add_option("-o,--output", options.output, "The result; see below for the kinds")
        ->type_name("OUTPUT")
        ->required();
    addParameters(command, options.parameters);
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
    addText(command, "--mask", options.mask, "FILE",
            "Paint the effect through a still of the input's size: none of it where the still is "
            "black or transparent, all where it is white, a blend where it is grey");
    addText(command, "--ends", options.ends, "blank|hold|loop",
            "What Play Speed finds before the first frame and after the last: nothing, the nearest "
            "frame, or the clip over again. blank without it");
    command.footer(kFooter);
}

}  // namespace ruvex::cli
