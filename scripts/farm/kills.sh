# A farm job whose tasks are killed, $kills of them, until it is complete. Sourced by scripts/test-farm.

# task_processes: of the tasks that render or join now.
task_processes() {
    local node pid
    for node in n0 n1; do
        for pid in $(processes_of "$node"); do
            [ "$(tr '\0' ' ' <"/proc/$pid/cmdline" 2>/dev/null | cut -d' ' -f2)" = farm ] && echo "$pid"
        done
    done || true
}

# kill_one_task: at a random moment of its life.
kill_one_task() {
    local pid
    # A single one early, so that it is found at work.
    sleep "$((kills > 1 ? RANDOM % 3 : 0)).$((RANDOM % 10))"
    pid=$(task_processes | shuf -n 1)
    [ -n "$pid" ] && kill -KILL "$pid" 2>/dev/null
}

# finish FOLDER: waits, and resumes what was killed, until all is complete.
finish() {
    local status tries
    for tries in 1 2 3 4 5 6; do
        wait_until 300 over "$1" || fail "no end: $(cat "$work/status.txt")"
        status=0
        status_of "$1" || status=$?
        cat "$work/status.txt"
        [ "$status" -eq 0 ] && return
        resume_job "$1"
    done
    fail "not complete after $tries submissions"
}

killed=0
rounds=0
node_failed=
while [ "$killed" -lt "$kills" ]; do
    rounds=$((rounds + 1))
    rm -rf "$work/farm/job" "$work"/farm/*.{png,mkv,mov,mp4}
    : >"$work/done.txt"
    echo "== Submission $rounds"
    submit_jobs "$work/farm/job"
    while [ "$killed" -lt "$kills" ]; do
        if kill_one_task; then
            killed=$((killed + 1))
            echo "$killed tasks killed"
        fi
        if over "$work/farm/job"; then
            status_of "$work/farm/job" && break
            resume_job "$work/farm/job"
        fi
        if [ "$kills" -gt 1 ] && [ -z "$node_failed" ] && [ "$killed" -ge $((kills / 2)) ]; then
            echo "== A node fails"
            kill_node n1
            node_failed=yes
            sleep 12  # longer than SlurmdTimeout
            start_node n1
        fi
    done
    finish "$work/farm/job"
    compare_results
    check_rendered_once "$work/farm/job"
    check_kept "$work/farm/job"
    ruvex farm cancel "$work/farm/job"
    check_nothing_partial
done
echo "Tasks killed: $killed; submissions: $rounds${node_failed:+; a node failed}."
