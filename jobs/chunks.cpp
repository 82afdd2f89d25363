#include "jobs/chunks.h"

#include <utility>

#include "files/numbered_path.h"
#include "files/partial_file.h"
#include "files/read_file.h"
#include "media/digest.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/video/chunk_form.h"
#include "media/video/chunk_join.h"

namespace ruvex::jobs {
namespace {

media::ChunkFile chunkFile(const Chunk& chunk) {
    return {chunk.file, toText(chunk.frames), chunk.frames.count()};
}

/// Throws JobError unless the chunks are all frames of the plan, one after the other.
void checkOrder(const RenderPlan& plan, std::span<const Chunk> chunks,
                std::span<const std::string> digests) {
    std::int64_t next = plan.frames.first;
    for (const Chunk& chunk : chunks) {
        if (chunk.frames.first != next || chunk.frames.count() < 1) {
            throw JobError(JobField::Frames, "the chunk " + toText(chunk.frames) +
                                                 " does not begin at frame " +
                                                 std::to_string(next) + ".");
        }
        next = chunk.frames.last + 1;
    }
    if (next != plan.frames.last + 1) {
        throw JobError(JobField::Frames, "the chunks end before frame " + std::to_string(next) +
                                             ", and the render at frame " +
                                             std::to_string(plan.frames.last) + ".");
    }
    if (digests.size() != chunks.size()) {
        throw JobError(JobField::Frames, std::to_string(chunks.size()) + " chunks have " +
                                             std::to_string(digests.size()) + " digests.");
    }
}

std::string digestOfPictures(const RenderPlan& plan, const Chunk& chunk) {
    const files::NumberedPath names(plan.output);
    media::Digest digest;
    digest.add(toText(chunk.frames));
    for (std::int64_t k = chunk.frames.first; k <= chunk.frames.last; ++k) {
        digest.add(files::readWhole(names.file(k)));
    }
    return digest.finish();
}

}  // namespace

void checkInChunks(const RenderPlan& plan) {
    if (plan.endless || media::fileKind(plan.input) == media::FileKind::Stream) {
        throw JobError(JobField::Input,
                       "a stream cannot be rendered in chunks, each of which opens the clip.");
    }
    const media::FileKind kind = media::fileKind(plan.output);
    if (kind != media::FileKind::Video && !media::isStill(kind)) {
        throw JobError(JobField::Output, plan.output.string() +
                                             " cannot be rendered in chunks. Use a sequence, or a "
                                             "video: .mkv stores FFV1, without loss.");
    }
}

bool isJoined(const RenderPlan& plan) {
    return media::fileKind(plan.output) == media::FileKind::Video;
}

std::string chunkExtension(const RenderPlan& plan) {
    return media::chunkForm(plan.output, plan.writing).extension;
}

RenderEnd renderChunk(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                      const Chunk& chunk, RenderEvents& events, const std::stop_token& stop) {
    checkInChunks(plan);
    RenderPlan part = plan;
    part.frames = chunk.frames;
    part.resume = !isJoined(plan);
    const OpenResult open = [&](const media::WriteOptions& writing) {
        if (part.resume) return media::openWriter(plan.output, writing);
        return media::openChunkWriter(chunk.file, plan.output, writing);
    };
    return renderInto(open, part, std::move(reader), events, stop);
}

std::string digestOf(const RenderPlan& plan, const Chunk& chunk) {
    if (!isJoined(plan)) return digestOfPictures(plan, chunk);
    return media::digestOfChunk(chunkFile(chunk));
}

RenderEnd joinChunks(const RenderPlan& plan, std::span<const Chunk> chunks,
                     std::span<const std::string> digests, RenderEvents& events,
                     const std::stop_token& stop) {
    checkInChunks(plan);
    if (!isJoined(plan)) {
        throw JobError(JobField::Output, plan.output.string() +
                                             " is a sequence, which is complete "
                                             "without being joined.");
    }
    checkOrder(plan, chunks, digests);
    events.begun({.range = plan.frames});
    files::removeAbandoned(plan.output);
    media::WriteOptions writing = plan.writing;
    writing.stop = stop;
    writing.written = [&] { events.frameWritten(); };
    media::ChunkJoin join(files::NumberedPath(plan.output).plain(), writing);
    for (const std::string& remark : join.remarks()) {
        events.remark(remark);
    }
    try {
        for (std::size_t i = 0; i < chunks.size(); ++i) {
            join.add(chunkFile(chunks[i]), digests[i]);
        }
    } catch (const media::Stopped&) {
        return RenderEnd::Stopped;
    }
    join.finish();
    events.finished();
    return RenderEnd::Finished;
}

}  // namespace ruvex::jobs
