#!/usr/bin/env bash
# check_many_jobs.sh CAMJOB EXAMPLES: the scripts of examples/many-jobs on a few jobs.
set -euo pipefail
export CAMJOB=$1
scripts=$2/many-jobs
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "$1" >&2
    exit 1
}
documents() { find "$scratch/jobs" -name order-run.json "$@" | wc -l; }

"$scripts/make-jobs.sh" "$scratch/jobs" 12
"$scripts/work.sh" "$scratch/jobs"
alone=$("$scripts/digest.sh" "$scratch/jobs")
[ "$(documents)" -eq 12 ] || fail "not all jobs are finished"

# One of two workers, and one that was killed: what is left is made, and nothing else.
rm -r "$scratch"/jobs/*/out
"$scripts/work.sh" "$scratch/jobs" 1 2
[ "$(documents)" -eq 6 ] || fail "a worker has not made its half"
code=0
"$scripts/summary.py" "$scratch/jobs" >"$scratch/summary" || code=$?
[ $code -eq 1 ] || fail "the summary of unfinished jobs ends with $code"
grep -q '^12 jobs: 6 finished, 0 of them with errors, 6 unfinished$' "$scratch/summary" || fail "$(cat "$scratch/summary")"
find "$scratch/jobs" -name order-run.json -exec touch -d 2026-01-02 {} +
find "$scratch/jobs" -name job.toml -exec touch -d 2026-01-01 {} +
BATCH=2 "$scripts/work.sh" "$scratch/jobs"
[ "$(documents -newermt 2026-02-01)" -eq 6 ] || fail "a restart repeats what is finished"
[ "$("$scripts/digest.sh" "$scratch/jobs")" = "$alone" ] || fail "the bytes differ by the workers"
"$scripts/summary.py" "$scratch/jobs" >"$scratch/summary"
grep -q '^Z200x2.0: ' "$scratch/summary" || fail "$(cat "$scratch/summary")"

# A job that is refused fails its worker, and no other job.
rm -r "$scratch"/jobs/*/out
echo broken >"$scratch/jobs/0003/nc/P1.nc1"
! "$scripts/work.sh" "$scratch/jobs" || fail "a refused job is told as done"
[ "$(documents)" -eq 11 ] || fail "a refused job stops others"
