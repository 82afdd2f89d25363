# The frames of a clip with the effect, as frei0r hosts and `ruvex render` give them: functions that
# print the MD5 sum of each frame as RGBA, for scripts that source this. They need:
#   RUVEX        the command
#   FREI0R_PATH  the folder of the plug-in, exported
#   WORK         a folder for files

RATE=${RATE:-25}
export QT_QPA_PLATFORM=offscreen

# md5_of_frames FFMPEG_INPUT_OPTIONS...
md5_of_frames() {
    ffmpeg -nostdin -v error -y "$@" -f framemd5 -pix_fmt rgba - | grep -v '^#' | awk '{print $NF}'
}

# make_clip WIDTHxHEIGHT FRAMES FILE: a lossless clip.
make_clip() {
    ffmpeg -nostdin -v error -y -f lavfi -i "testsrc2=size=$1:rate=$RATE" -frames:v "$2" -pix_fmt bgr0 -c:v ffv1 "$3"
}

# frames_of_ruvex CLIP RENDER_OPTIONS...: the reference.
frames_of_ruvex() {
    local clip=$1
    shift
    rm -rf "$WORK/ruvex" && mkdir "$WORK/ruvex"
    "$RUVEX" render "$clip" -o "$WORK/ruvex/%d.png" --workers 8 --quiet "$@" &&
        md5_of_frames -start_number 0 -i "$WORK/ruvex/%d.png"
}

# frames_of_ffmpeg CLIP VALUES: the values are ffmpeg's, in their order and separated by |.
frames_of_ffmpeg() {
    md5_of_frames -i "$1" -vf "frei0r=ruvex:$2"
}

# frames_of_melt CLIP INSTANCES PROPERTY=VALUE...: INSTANCES render at once, each on its own thread. On a busy
# machine melt 7.12 sometimes ends without a picture, or never, without any plug-in too: then it is started
# again.
frames_of_melt() {
    local clip=$1 count attempt status=1
    write_profile "$clip"
    count=$(frame_count "$clip")
    for attempt in 1 2 3; do
        status=0
        run_melt $((count - 1)) "$@" || status=$?
        [ "$status" -ne 0 ] || break
        # A failure with pictures is one of the plug-in, but for the time limit.
        [ "$status" -eq 124 ] || [ "$(find "$WORK/melt" -name '*.png' | wc -l)" -eq 0 ] || return 1
        echo "melt ended with status $status in attempt $attempt" >&2
    done
    [ "$status" -eq 0 ] || return 1
    md5_of_frames -start_number 1 -i "$WORK/melt/%04d.png"
}

# run_melt LAST_FRAME CLIP INSTANCES PROPERTY=VALUE...: for frames_of_melt.
run_melt() {
    local last=$1 clip=$2 instances=$3 order=0
    shift 3
    [ "$instances" -eq 1 ] || order=-$instances
    rm -rf "$WORK/melt" && mkdir "$WORK/melt"
    timeout 20 melt -silent -profile "$WORK/profile" "$clip" in=0 out="$last" -filter frei0r.ruvex "$@" \
        -consumer "avformat:$WORK/melt/%04d.png" vcodec=png pix_fmt="${PIXELS:-rgb24}" mlt_image_format=rgba \
        real_time="$order" </dev/null >"$WORK/melt.log" 2>&1 || { status=$?; cat "$WORK/melt.log" >&2; return "$status"; }
}

# frames_of_gstreamer CLIP PROPERTY=VALUE...
frames_of_gstreamer() {
    local clip=$1
    shift
    rm -rf "$WORK/gst" && mkdir "$WORK/gst"
    ffmpeg -nostdin -v error -y -i "$clip" -pix_fmt rgb24 -start_number 0 "$WORK/gst/in%d.png"
    gst-launch-1.0 -q multifilesrc "location=$WORK/gst/in%d.png" index=0 "caps=image/png,framerate=$RATE/1" ! \
        pngdec ! videoconvert ! frei0r-filter-ruvex "$@" ! videoconvert ! video/x-raw,format=RGB ! pngenc ! \
        multifilesink "location=$WORK/gst/out%d.png" >"$WORK/gst.log" 2>&1 || { cat "$WORK/gst.log" >&2; return 1; }
    md5_of_frames -start_number 0 -i "$WORK/gst/out%d.png"
}

frame_count() {
    ffprobe -v error -count_packets -show_entries stream=nb_read_packets -of csv=p=0 "$1"
}

# write_profile CLIP: melt's description of its size and rate. Without a text melt crashes at its end.
write_profile() {
    local width height
    IFS=, read -r width height < <(ffprobe -v error -show_entries stream=width,height -of csv=p=0 "$1")
    printf '%s\n' description=clip "frame_rate_num=$RATE" frame_rate_den=1 "width=$width" "height=$height" progressive=1 \
        sample_aspect_num=1 sample_aspect_den=1 "display_aspect_num=$width" "display_aspect_den=$height" \
        colorspace=709 >"$WORK/profile"
}

# expect_same TITLE EXPECTED RESULT: compares two lists of sums, which must not be empty.
expect_same() {
    if [ -n "$2" ] && [ "$2" = "$3" ]; then
        echo "same frames: $1 ($(wc -l <<<"$2"))"
    else
        echo "FRAMES DIFFER: $1" >&2
        diff <(echo "$2") <(echo "$3") >&2 || true
        failures=$((${failures:-0} + 1))
    fi
}
