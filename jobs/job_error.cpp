#include "jobs/job_error.h"

namespace ruvex::jobs {

std::string_view fieldName(JobField field) {
    switch (field) {
        case JobField::Input:
            return "input";
        case JobField::InputFormat:
            return "inputFormat";
        case JobField::Size:
            return "size";
        case JobField::Rate:
            return "rate";
        case JobField::Alpha:
            return "alpha";
        case JobField::FieldOrder:
            return "fieldOrder";
        case JobField::Output:
            return "output";
        case JobField::OutputFormat:
            return "outputFormat";
        case JobField::Codec:
            return "codec";
        case JobField::Quality:
            return "quality";
        case JobField::Frames:
            return "frames";
        case JobField::Depth:
            return "depth";
        case JobField::Workers:
            return "workers";
        case JobField::ProjectSize:
            return "projectSize";
        case JobField::PixelAspect:
            return "pixelAspect";
        case JobField::Region:
            return "region";
        case JobField::Fields:
            return "fields";
        case JobField::Mask:
            return "mask";
        case JobField::Ends:
            return "ends";
        case JobField::Comparison:
            return "comparison";
        case JobField::FramesAtOnce:
            return "framesAtOnce";
        case JobField::Resume:
            return "resume";
        case JobField::Parameters:
            return "parameters";
    }
    return "";
}

}  // namespace ruvex::jobs
