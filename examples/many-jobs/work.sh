#!/usr/bin/env bash
# work.sh FOLDER [WORKER WORKERS] runs the jobs of FOLDER/jobs.txt that are not finished, or of all lines those that
# fall to one of several workers (from 0 on). Call it again after whatever has stopped it: a job is finished when its
# run document is there, which comes with the rest of its output or not at all.
set -euo pipefail
worker=${2:-0}
workers=${3:-1}
cd "$1"

# By the numbers of the lines, so that workers that begin at different times never share a job.
mine() { awk -v worker="$worker" -v workers="$workers" 'NR % workers == worker' jobs.txt; }
unfinished() {
    local job
    while read -r job; do
        [ "$(dirname "$job")/out/order-run.json" -nt "$job" ] || echo "$job"
    done
}

# Exit codes from 2 on: a job was refused or could not be written; 1 is an order with members that have errors.
mine | unfinished | xargs -r -n "${BATCH:-20}" sh -c '
    "${CAMJOB:-camjob}" run "$@" >>"log-$0.txt" 2>&1 || [ $? -eq 1 ]' "$worker"
