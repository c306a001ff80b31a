#!/usr/bin/env bash
# slurm-node.sh start FOLDER | stop FOLDER: Slurm on this machine alone, with four slots, to try slurm-array.sh where
# there is no cluster. As root, with Debian's slurm-wlm and munge. All that it keeps and writes is in FOLDER; use it
# with SLURM_CONF=FOLDER/slurm.conf.
set -euo pipefail
if [ $# -ne 2 ] || [[ $1 != start && $1 != stop ]]; then
    echo "usage: slurm-node.sh start FOLDER | stop FOLDER" >&2
    exit 2
fi
action=$1
mkdir -p "$2"
folder=$(cd "$2" && pwd)

start() {
    mkdir -p "$folder/state" "$folder/spool" "$folder/munge"
    chmod 700 "$folder/munge"
    (umask 077 && head -c 1024 /dev/urandom >"$folder/munge/key")
    cat >"$folder/slurm.conf" <<END
ClusterName=trial
SlurmctldHost=$(hostname -s)(127.0.0.1)
SlurmUser=root
SlurmctldPort=16817
SlurmdPort=16818
AuthType=auth/munge
AuthInfo=socket=$folder/munge/socket
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
SlurmdParameters=config_overrides
ReturnToService=2
StateSaveLocation=$folder/state
SlurmdSpoolDir=$folder/spool
SlurmctldPidFile=$folder/slurmctld.pid
SlurmdPidFile=$folder/slurmd.pid
SlurmctldLogFile=$folder/slurmctld.log
SlurmdLogFile=$folder/slurmd.log
NodeName=$(hostname -s) NodeAddr=127.0.0.1 CPUs=4 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
END
    munged --force --key-file="$folder/munge/key" --socket="$folder/munge/socket" --pid-file="$folder/munged.pid" \
        --log-file="$folder/munge/log" --seed-file="$folder/munge/seed"
    slurmctld -f "$folder/slurm.conf"
    slurmd -f "$folder/slurm.conf"
    SLURM_CONF=$folder/slurm.conf sinfo
}

stop() {
    local daemon
    for daemon in slurmd slurmctld munged; do
        [ ! -e "$folder/$daemon.pid" ] || kill "$(cat "$folder/$daemon.pid")"
    done
}

"$action"
