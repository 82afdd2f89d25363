# A Slurm of our own for tests: one slurmctld and two slurmd, n0 and n1, on this machine, with all of
# its files in one folder, and ports that belong to this run. Without authentication: anyone on the
# machine could submit while it runs. To be sourced by bash.

# Tasks begin sooner than a scheduler for long ones lets them. Empty: as Slurm is installed.
: "${slurm_scheduling=SchedulerParameters=batch_sched_delay=0,sched_min_interval=100000}"

# slurm_conf FOLDER: writes the configuration.
slurm_conf() {
    local folder=$1 port=$((20000 + $$ % 20000))
    mkdir -p "$folder/state" "$folder/log"
    cat >"$folder/slurm.conf" <<CONF
ClusterName=test
SlurmctldHost=localhost(127.0.0.1)
SlurmUser=$(id -un)
SlurmdUser=$(id -un)
AuthType=auth/none
CredType=cred/none
ProctrackType=proctrack/pgid
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerType=sched/backfill
$slurm_scheduling
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
MpiDefault=none
ReturnToService=2
SlurmdTimeout=10
KillWait=5
SlurmctldPort=$port
StateSaveLocation=$folder/state
SlurmctldPidFile=$folder/slurmctld.pid
SlurmctldLogFile=$folder/log/slurmctld.log
SlurmdPidFile=$folder/slurmd.%n.pid
SlurmdLogFile=$folder/log/slurmd.%n.log
SlurmdSpoolDir=$folder/spool.%n
NodeName=n0 NodeHostname=localhost NodeAddr=127.0.0.1 Port=$((port + 1)) CPUs=1 RealMemory=500 State=UNKNOWN
NodeName=n1 NodeHostname=localhost NodeAddr=127.0.0.1 Port=$((port + 2)) CPUs=1 RealMemory=500 State=UNKNOWN
PartitionName=main Nodes=n0,n1 Default=YES MaxTime=INFINITE State=UP
CONF
    export SLURM_CONF=$folder/slurm.conf
    slurm_folder=$folder
}

declare -A slurm_node=()

# start_node NODE [COMMAND...]: starts its slurmd, through the command if there is one.
start_node() {
    local node=$1
    shift
    "$@" slurmd -D -N "$node" >/dev/null 2>&1 &
    slurm_node[$node]=$!
}

# processes_of NODE: the processes of its tasks, by the environment that slurmd gives them.
processes_of() {
    local file
    # Every process, since a scheduler's tasks are no children of this shell.
    grep -lzxF "SLURMD_NODENAME=$1" /proc/[0-9]*/environ 2>/dev/null | while IFS= read -r file; do
        grep -qzxF "SLURM_CONF=$SLURM_CONF" "$file" 2>/dev/null && basename "$(dirname "$file")"
    done || true
}

# kill_node NODE: as if its power failed: slurmd and the tasks end at once, without a word.
kill_node() {
    local pid
    kill -KILL "${slurm_node[$1]}" 2>/dev/null || true
    for pid in $(processes_of "$1"); do kill -KILL "$pid" 2>/dev/null || true; done
    wait "${slurm_node[$1]}" 2>/dev/null || true
}

# wait_until SECONDS COMMAND...: repeats the command until it succeeds; false when it never does.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.2
    done
}

nodes_idle() { [ "$(sinfo -h -o '%T %D' 2>/dev/null)" = "idle 2" ]; }

# start_slurm FOLDER: both nodes are idle afterwards.
start_slurm() {
    slurm_conf "$1"
    slurmctld -D >/dev/null 2>&1 &
    slurm_controller=$!
    wait_until 20 scontrol ping >/dev/null 2>&1
    start_node n0
    start_node n1
    wait_until 30 nodes_idle || { tail -n 5 "$1"/log/*; return 1; }
}

stop_slurm() {
    local node pid
    scancel -u "$(id -un)" >/dev/null 2>&1 || true
    for node in "${!slurm_node[@]}"; do
        kill "${slurm_node[$node]}" 2>/dev/null || true
        for pid in $(processes_of "$node"); do kill -KILL "$pid" 2>/dev/null || true; done
    done
    kill "$slurm_controller" 2>/dev/null || true
    wait "${slurm_node[@]}" "$slurm_controller" 2>/dev/null || true
}
