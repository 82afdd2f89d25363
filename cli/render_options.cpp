#include "cli/render_options.h"

namespace ruvex::cli {

const char* const kRenderNotes = R"(Files, by the ending of their names:
  .png .tif .tiff .dpx    stills, 8 or 16 bits a channel
  .exr                    stills in floats, white 1; half floats are read too
  .jpg .jpeg              stills of 8 bits, without alpha
  .rgba8                  raw frames, 4 bytes a pixel: red, green, blue, alpha
  .s214                   raw frames, four little-endian signed 16-bit words a pixel, white 16384
  .mp4 .m4v               video out: H.264, without alpha
  .mov                    video out: ProRes 4444, with alpha
  .mkv                    video out: FFV1, without loss, with alpha
  .y4m                    video out without compression, and without alpha
  -                       standard input or output: Y4M or raw frames, one after the other
  anything else           video in: whatever the FFmpeg libraries read
A number in a name stands for a sequence: shot.%05d.png is shot.00000.png, shot.00001.png, ...
Raw frames have no header; their first row is row 0 of the chain, the picture's bottom line.
The sound of a video is copied into a video, cut to --frames.)";

OptionTable renderOptions(RenderOptions& options) {
    OptionTable table = {
        {"INPUT", "", "Video, stills or raw frames", &options.input, true},
        {"-o,--output", "OUTPUT", "The result; see below for the kinds", &options.output, true},
    };
    const OptionTable parameters = parameterOptions(options.parameters);
    table.insert(table.end(), parameters.begin(), parameters.end());
    const OptionTable picture = {
        {"--frames", "A-B",
         "First and last frame, inclusive, or one; all without it. Frame k is at time k / rate",
         &options.frames},
        {"--rate", "R",
         "Frames a second where the input does not say: 25, 29.97, 30000/1001. 25 without it",
         &options.rate},
        {"--size", "WxH", "Size of raw input frames", &options.size},
        {"--depth", "8|16", "Bits a channel in the chain; by the input without it", &options.depth},
        {"--alpha", "straight|premultiplied",
         "How input and output store colour beside alpha; without it, EXR premultiplied and "
         "everything else straight. The effect works on straight colour",
         &options.alpha},
        {"--codec", "ffv1|h264|h265|prores",
         "How video is coded; without it .mp4 and .m4v are H.264, .mov is ProRes 4444, .mkv is "
         "FFV1",
         &options.codec},
        {"--quality", "1-100",
         "Of H.264 and H.265 (72 without it), of ProRes and JPEG (95); 100 is the finest",
         &options.quality},
        {"--input-format", "y4m|rgba8|s214",
         "What standard input (-) holds; without it raw frames of 8 bits if --size is given, else "
         "Y4M",
         &options.inputFormat},
        {"--output-format", "y4m|rgba8|s214", "What goes to standard output (-); Y4M without it",
         &options.outputFormat},
        {"--workers", "N",
         "Shares that each picture is cut into; by the machine without it. The same number gives "
         "the same picture on every machine",
         &options.workers},
        {"--project-size", "WxH",
         "Project frame that lengths in parameters refer to; the input's size without it",
         &options.projectSize},
        {"--pixel-aspect", "A", "Width of a project pixel over its height; 1 without it",
         &options.pixelAspect},
        {"--region", "X,Y,W,H",
         "Render this part only, rows counted from the bottom; the rest is left at zero",
         &options.region},
        {"--fields", "",
         "Render each field of interlaced video as a picture of its own, at its own time, and "
         "weave them again",
         &options.fields},
        {"--field-order", "top|bottom|none",
         "Which field of a frame comes first, or that there are none; as the input says without it",
         &options.fieldOrder},
        {"--mask", "FILE",
         "Paint the effect through a still of the input's size: none of it where the still is "
         "black or transparent, all where it is white, a blend where it is grey",
         &options.mask},
        {"--ends", "blank|hold|loop",
         "What Play Speed finds before the first frame and after the last: nothing, the nearest "
         "frame, or the clip over again. blank without it",
         &options.ends},
    };
    table.insert(table.end(), picture.begin(), picture.end());
    const OptionTable work = {
        {"--jobs", "N",
         "Frames that are rendered at once; 1 without it. Changes the time that it takes and never "
         "a picture; helps small pictures, and with --workers 1 large ones",
         &options.jobs},
        {"--resume", "",
         "Go on with a numbered sequence: pictures that are there, complete and of the right size, "
         "are kept",
         &options.resume},
        {"--dry-run", "", "Tell what would be done, and write nothing", &options.dryRun},
        {"--quiet", "", "Say nothing but what went wrong", &options.quiet},
        {"--verbose", "", "Say more: what is done, how it goes on, and what it took",
         &options.verbose},
    };
    table.insert(table.end(), work.begin(), work.end());
    return table;
}

RenderOptions oneFrame(RenderOptions options, std::int64_t number) {
    options.frames = std::to_string(number) + "-" + std::to_string(number);
    options.jobs.clear();
    options.resume = false;
    options.verbose = false;
    return options;
}

}  // namespace ruvex::cli
