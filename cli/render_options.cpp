#include "cli/render_options.h"

#include "cli/media_options.h"

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
  .mxf                    video out: DNxHR HQX, with sound as PCM of 48 kHz
  .y4m                    video out without compression, and without alpha
  -                       standard input or output: Y4M or raw frames, one after the other
  anything else           video in: whatever the FFmpeg libraries read
A number in a name stands for a sequence: shot.%05d.png is shot.00000.png, shot.00001.png, ...
%%d stands for %d as it is.
Raw frames have no header; their first row is row 0 of the chain, the picture's bottom line.
Sound, subtitles, chapters and attached files of a video are copied into a video that can hold them,
cut to --frames.)";

OptionTable renderOptions(RenderOptions& options) {
    OptionTable table = {
        {"INPUT", "", "Video, stills or raw frames; several, if the output is a folder",
         &options.inputs, true},
        {"-o,--output", "OUTPUT",
         "The result, or a folder for results of the inputs' names; see below for the kinds",
         &options.output, true},
    };
    const OptionTable parameters = parameterOptions(options.parameters);
    table.insert(table.end(), parameters.begin(), parameters.end());
    const OptionTable picture = {
        {"-f,--frames", "A-B",
         "First and last frame, inclusive, or one frame; default: all. Frame k is at time k / rate",
         &options.frames},
        {"--rate", "R", kRateHelp, &options.rate},
        {"--size", "WxH", "Size of raw input frames", &options.size},
        {"--depth", "8|16", "Bits a channel in the chain; default: by the input", &options.depth},
        {"--alpha", "straight|premultiplied",
         "How input and output store colour beside alpha; default: EXR premultiplied, everything "
         "else straight. The effect works on straight colour",
         &options.alpha},
        {"--result-alpha", "effect|opaque",
         "Alpha of the result: as the effect gives it, or full; default: effect for inputs with "
         "alpha and for raw frames, else opaque",
         &options.resultAlpha},
        {"--output-size", "WxH",
         "Render at the input's size, and scale the result to this one by area averaging; default: "
         "the input's size",
         &options.outputSize},
        {"--codec",
         "h264|h265|ffv1|prores-4444|prores-422-hq|prores-422|prores-422-lt|prores-422-proxy|"
         "dnxhr-444|dnxhr-hqx|dnxhr-hq|dnxhr-sq|dnxhr-lb",
         "How video is coded; default: h264 in .mp4 and .m4v, prores-4444 in .mov, ffv1 in .mkv, "
         "dnxhr-hqx in .mxf",
         &options.codec},
        {"--quality", "1-100",
         "How good lossy pictures are, 100 is the best; default: 95 for ProRes 4444 and JPEG, for "
         "H.264 and H.265 64 with at most one bit a pixel. Not a CRF: CRF 18 is 64, CRF 23 is 54",
         &options.quality},
        {"--encoder-speed", "PRESET",
         "Of H.264 and H.265: ultrafast, superfast, veryfast, faster, fast, medium, slow, slower "
         "or veryslow; default: medium. Slower presets give smaller files",
         &options.encoderSpeed},
        {"--encoder-threads", "N",
         "Threads of the video encoder; default: by the machine. The same number gives the same "
         "bytes on every machine, which matters for H.264 and H.265; above 1 their bit rate has no "
         "limit",
         &options.encoderThreads},
        {"--exr-pixels", "half|float", "Component type of .exr; default: float",
         &options.exrPixels},
        {"--exr-compression", "none|rle|zip1|zip16",
         "Compression of .exr, lossless; default: zip16, 16 lines in each block",
         &options.exrCompression},
        {"--mute", "", "Write no sound", &options.mute},
        {"--input-format", "y4m|rgba8|s214",
         "What standard input (-) holds; default: raw frames of 8 bits if --size is given, else "
         "Y4M",
         &options.inputFormat},
        {"--output-format", "y4m|rgba8|s214", "What goes to standard output (-); default: y4m",
         &options.outputFormat},
        {"--workers", "N",
         "Shares that each picture is cut into; default: the machine's processors. The same number "
         "gives the same picture on every machine",
         &options.workers},
        {"--project-size", "WxH",
         "Project frame that lengths in parameters refer to; default: the input's size",
         &options.projectSize},
        {"--pixel-aspect", "A", "Width of a project pixel over its height, 0.1 to 10; default: 1",
         &options.pixelAspect},
        {"--region", "X,Y,W,H",
         "Render this part only, rows counted from the bottom; default: the whole picture. The "
         "rest is left at zero, but for the halo of White Dot, which reaches beyond the part",
         &options.region},
        {"--fields", "",
         "Render each field of interlaced video as a picture of its own, at its own time, and "
         "weave them again",
         &options.fields},
        {"--field-order", "top|bottom|none",
         "Which field of a frame comes first, or that there are none; default: as the input says",
         &options.fieldOrder},
        {"--mask", "FILE",
         "Paint the effect through a still of the input's size: none of it where the still is "
         "black or transparent, all where it is white, a blend where it is grey",
         &options.mask},
        {"--ends", "blank|hold|loop",
         "What Play Speed finds before the first frame and after the last: nothing, the nearest "
         "frame, or the clip repeated; default: blank",
         &options.ends},
    };
    table.insert(table.end(), picture.begin(), picture.end());
    const OptionTable work = {
        {"--jobs", "N",
         "Frames that are rendered at once; default: 1. Changes the time that a render takes and "
         "never a picture; helps small pictures, and with --workers 1 large ones",
         &options.jobs},
        {"--resume", "",
         "Continue a numbered sequence: files that are complete pictures of the right size are "
         "kept",
         &options.resume},
        {"--dry-run", "", "Report what would be done, and write nothing", &options.dryRun},
        {"--save-job", "FILE.json",
         "Write the render as a job, which 'ruvex run' does later or elsewhere; render nothing",
         &options.saveJob},
    };
    table.insert(table.end(), work.begin(), work.end());
    addTalkOptions(table, options.talk);
    return table;
}

RenderOptions oneFrame(RenderOptions options, std::int64_t number) {
    options.frames = std::to_string(number) + "-" + std::to_string(number);
    options.jobs.clear();
    options.resume = false;
    options.talk.verbose = false;
    options.saveJob.clear();
    return options;
}

}  // namespace ruvex::cli
