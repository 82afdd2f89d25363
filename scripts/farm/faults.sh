# What is said of what can go wrong on a cluster. Sourced by scripts/test-farm --faults, as root: a node
# gets mounts of its own.

bin=$PWD/build/release/bin

# expect TEXT COMMAND...: the command fails and prints the text.
expect() {
    local text=$1 status=0
    shift
    "$@" >"$work/said.txt" 2>&1 || status=$?
    sed 's/^/    /' "$work/said.txt"
    [ "$status" -ne 0 ] || fail "this should have failed: $*"
    grep -qF -- "$text" "$work/said.txt" || fail "not said: $text"
}

# restart_node MOUNT...: n1 again, after these arguments of mount, which nobody else sees.
restart_node() {
    kill "${slurm_node[n1]}"
    wait "${slurm_node[n1]}" 2>/dev/null || true
    local mounts=
    for one in "$@"; do mounts+="mount $one && "; done
    start_node n1 unshare --mount sh -c "$mounts exec \"\$@\"" sh
    sleep 1
    wait_until 30 nodes_idle
}

# begin NAME [OPTION...]: a new farm job of the four renders, whose tasks run on n1 alone.
begin() {
    local name=$1
    shift
    echo "== $name"
    rm -rf "$work/farm/job" "$work"/farm/*.{png,mkv,mov,mp4}
    submit_jobs "$work/farm/job" --quiet --sbatch=--nodelist=n1 "$@"
    wait_until 200 over "$work/farm/job" || fail "no end"
}

restart_node "-t tmpfs none $work/clips"
begin "A node that does not see the clip"
expect "does not see" ruvex farm status "$work/farm/job"

restart_node "-t tmpfs none $work/farm"
begin "A node that does not see the folder"
expect "n1 may not see $work/farm/job" ruvex farm status "$work/farm/job"

cp -r "$bin" "$work/other"
echo >>"$work/other/V_Ruvex.so"
restart_node "--bind $work/other $bin"
begin "A node with another version of the program"
expect "Install one and the same on every machine" ruvex farm status "$work/farm/job"
restart_node

echo "== All is well again"
ruvex farm resume "$work/farm/job"
wait_until 200 over "$work/farm/job"
status_of "$work/farm/job" || { cat "$work/status.txt"; fail "not complete"; }
cat "$work/status.txt"

echo "== A full disk"
mkdir -p "$work/small"
mount -t tmpfs -o size=1200k none "$work/small"
trap 'stop_slurm; umount "$work/small"' EXIT
restart_node
ruvex farm submit "$work/clips/clip.mp4" -o "$work/small/o.%d.png" --chunk 11 --quiet
wait_until 100 over "$work/small/o.farm" || fail "no end"
expect "the disk is full" ruvex farm status "$work/small/o.farm"
mount -o remount,size=60m "$work/small"
ruvex farm resume "$work/small/o.farm"
wait_until 100 over "$work/small/o.farm" || fail "no end"
status_of "$work/small/o.farm" || { cat "$work/status.txt"; fail "not complete"; }

echo "== Refusals"
expect "holds a farm job already" submit_jobs "$work/farm/job"
expect "sbatch failed: " submit_jobs "$work/farm/other" --partition none
expect "is under way" flock "$work/farm/job/lock" ruvex farm resume "$work/farm/job"

echo "== A cancelled job"
rm -rf "$work/farm/job" "$work"/farm/*.{png,mkv,mov,mp4}
submit_jobs "$work/farm/job" --quiet
wait_until 60 sh -c "ls '$work'/farm/job/done/ | grep -q ."
ruvex farm cancel "$work/farm/job"
[ -z "$(squeue -h)" ] || fail "something is left in the queue"
check_nothing_partial
expect "'ruvex farm resume' submits what is missing" ruvex farm status "$work/farm/job"
ruvex farm resume "$work/farm/job"
wait_until 200 over "$work/farm/job"
status_of "$work/farm/job" || { cat "$work/status.txt"; fail "not complete"; }
check_nothing_partial
echo "Each fault was noticed, and lost nothing."
