// A render in parts, each by a process of its own, on any machine.

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <stop_token>
#include <string>

#include "jobs/render_plan.h"
#include "jobs/run_render.h"

namespace ruvex::jobs {

/// Consecutive frames of a render, rendered by one task.
struct Chunk {
    FrameRange frames;
    std::filesystem::path file;  ///< Where a chunk of a video is stored; empty for sequences, whose
                                 ///< pictures are files of their own.
};

/// Throws JobError unless the plan can be rendered in chunks: its input and its result are files,
/// and the result is a video or stills.
void checkInChunks(const RenderPlan& plan);

/// Whether the result is one file that is joined from chunk files (video) or a sequence of files.
bool isJoined(const RenderPlan& plan);

/// The extension of chunk files (".mkv", ".mov") for a plan that is joined.
std::string chunkExtension(const RenderPlan& plan);

/// Renders a chunk with an open reader of the plan's input: whole or not at all under its final
/// name(s); of a sequence, pictures that are complete and of the right size are kept, whatever they
/// were made with, unless plan.keptAfter says more. No byte depends on how a render is divided into
/// chunks. Throws as runRender does. Temporary files that killed tasks have left are not touched:
/// files::removeAbandoned lists the whole folder, which is for once after all tasks, and other
/// tasks may be at work there.
RenderEnd renderChunk(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                      const Chunk& chunk, RenderEvents& events, const std::stop_token& stop = {});

/// Tells whether a chunk is the one that its task has made: the media::Digest of the chunk's
/// numbers of frames and of what its files hold: packets of a chunk file in order, bytes of the
/// pictures of a sequence in order. Throws media::MediaError where a file is missing or damaged;
/// the message names the chunk, or the picture.
std::string digestOf(const RenderPlan& plan, const Chunk& chunk);

/// Joins the chunks of a video, in order, into plan.output with sound, time code and tags as
/// runRender writes them: packet for packet what runRender would have written, of H.264 and H.265
/// with the same RenderJob::encoderThreads. Calls events.frameWritten for each frame. `digests`,
/// one a chunk, are compared with what is read on the way. Throws JobError where chunks are not all
/// frames of the plan in order, media::ChunkError for one that is missing, damaged or not the one
/// of its digest, and as runRender does. Whole or not at all.
RenderEnd joinChunks(const RenderPlan& plan, std::span<const Chunk> chunks,
                     std::span<const std::string> digests, RenderEvents& events,
                     const std::stop_token& stop = {});

}  // namespace ruvex::jobs
