#!/usr/bin/env bash
# work.sh FOLDER [WORKER WORKERS] runs the jobs of FOLDER/jobs.txt that are not finished, or of all lines those that
# fall to one of several workers (from 0 on). Call it again after whatever has stopped it: a job is finished when its
# run document is newer than its job file, and no run was cut off while it put its files in their places.
set -euo pipefail
worker=${2:-0}
workers=${3:-1}
number='^(0|[1-9][0-9]{0,6})$'
if [ $# -eq 0 ] || [ $# -gt 3 ] || ! [[ $worker =~ $number && $workers =~ $number && $worker -lt $workers ]]; then
    echo "usage: work.sh FOLDER [WORKER WORKERS], WORKER from 0 to WORKERS - 1" >&2
    exit 2
fi
# The program may be named from where the worker was called.
[[ ${CAMJOB:-} != */* ]] || CAMJOB=$(realpath -s -- "$CAMJOB")
export CAMJOB=${CAMJOB:-camjob}
cd -- "$1"

# By the numbers of the lines, so that workers that begin at different times never share a job.
mine() { awk -v worker="$worker" -v workers="$workers" 'NR % workers == worker && length' jobs.txt; }
# summary.py asks the same. The record "commit" is there while files take their places; the next run goes on with it.
is_finished() {
    local out
    out=$(dirname -- "$1")/out
    [ -f "$1" ] && [ -s "$out/order-run.json" ] && [ "$out/order-run.json" -nt "$1" ] && [ ! -e "$out/.camjob/commit" ]
}
unfinished() {
    local job
    while IFS= read -r job; do
        is_finished "$job" || printf '%s\n' "$job"
    done
}

# Exit codes from 2 on: a job was refused or could not be written; 1 is an order with members that have errors.
mine | unfinished | xargs -r -d '\n' -n "${BATCH:-20}" sh -c '
    "$CAMJOB" run --threads "${THREADS:-1}" "$@" >>"log-$0.txt" 2>&1 || [ $? -eq 1 ]' "$worker"
