# What scripts/test-farm renders and how it compares. To be sourced by bash; $work is its folder.

fail() {
    echo "test-farm: $*" >&2
    exit 1
}

# make_jobs: a clip with sound, and the same four jobs in the folders one/ and farm/.
make_jobs() {
    ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=320x240:rate=25 -f lavfi -i sine=440 -t 2.4 \
        -pix_fmt yuv420p -c:a aac "$work/clips/clip.mp4"
    local output threads
    for output in pictures.%04d.png lossless.mkv edit.mov film.mp4; do
        # Relative names: the copies name results beside themselves.
        threads=(--encoder-threads 8)
        [[ $output != *.png ]] || threads=()
        (cd "$work/one" && ruvex render ../clips/clip.mp4 -o "$output" --preset "Bad Colour TV" \
            --key "Play Speed=0:100 1.5:-100" --ends hold --workers 8 "${threads[@]}" \
            --save-job "${output##*.}.json")
    done
    cp "$work"/one/*.json "$work/farm/"
}

# submit_jobs FOLDER [OPTION...]
submit_jobs() {
    local folder=$1
    shift
    ruvex farm submit "$work"/farm/*.json --folder "$folder" --chunk 11 "$@"
}

status_of() {
    local status=0
    ruvex farm status "$1" >"$work/status.txt" || status=$?
    return "$status"
}

# over FOLDER: nothing waits or runs.
over() {
    local status=0
    status_of "$1" || status=$?
    case $status in
        0 | 1) return 0 ;;
        3) return 1 ;;
        *) fail "the status ended with $status" ;;
    esac
}

# done_files FOLDER: the records of chunks and the pictures that are there, with their times and inodes.
done_files() {
    find "$1/done" "$work/farm" -maxdepth 1 \( -name 'chunk-*.json' -o -name 'pictures.*.png' \) \
        -printf '%p %T@ %i\n' | sort
}

# resume_job FOLDER: what is done by now has to be the same file when the job is complete.
resume_job() {
    done_files "$1" >>"$work/done.txt"
    ruvex farm resume "$1"
}

# check_kept FOLDER
check_kept() {
    local lost
    lost=$(sort -u "$work/done.txt" | comm -23 - <(done_files "$1"))
    [ -z "$lost" ] || fail "written again: $lost"
    echo "$(sort -u "$work/done.txt" | wc -l) records and pictures were done at a resume, and stayed."
}

# compare_results: each file that one machine has made is there with the same bytes.
compare_results() {
    local file count=0
    for file in "$work"/one/*; do
        [[ $file == *.json ]] && continue
        cmp "$file" "$work/farm/$(basename "$file")" || fail "$(basename "$file") differs"
        count=$((count + 1))
    done
    [ "$count" -eq 63 ] || fail "$count files instead of 63"
    echo "All $count files have the bytes of one machine's."
}

# check_rendered_once FOLDER: no task has rendered a chunk that was done.
check_rendered_once() {
    local log count
    for log in "$1"/logs/*-task-*; do
        count=$(grep -c ' is done\.$' "$log" || true)
        [ "$count" -eq 1 ] || { cat "$log"; fail "a chunk was rendered $count times to its end"; }
    done
    echo "No chunk was rendered again after it was done."
}

# check_nothing_partial: no temporary file is left.
check_nothing_partial() {
    local left
    left=$(find "$work/farm" -name '.*.partial-*')
    [ -z "$left" ] || fail "left behind: $left"
}
