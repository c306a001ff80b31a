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

# One that was cut off behind its run document, before the last of its files was in its place.
out=$scratch/jobs/0005/out
mkdir "$out/.camjob/staging"
mv "$out/.camjob/output" "$out/.camjob/commit"
last=$(sed -n 's/^file //p' "$out/.camjob/commit" | grep -vx order-run.json | tail -1)
mv "$out/$last" "$out/.camjob/staging"
! "$scripts/summary.py" "$scratch/jobs" >"$scratch/summary" || fail "a job that was cut off is told as finished"
"$scripts/work.sh" "$scratch/jobs"
[ "$("$scripts/digest.sh" "$scratch/jobs")" = "$alone" ] || fail "a job that was cut off is not brought to its end"

# Blanks and quotes in names, and a program named from here.
mkdir "$scratch/it's a place"
mv "$scratch/jobs/0001" "$scratch/it's a place/an order's"
echo "an order's/job.toml" >"$scratch/it's a place/jobs.txt"
rm -r "$scratch/it's a place/an order's/out"
CAMJOB=$(realpath --relative-to=. "$CAMJOB") "$scripts/work.sh" "$scratch/it's a place"
"$scripts/summary.py" "$scratch/it's a place" >"$scratch/summary" || fail "$(cat "$scratch/summary")"
mv "$scratch/it's a place/an order's" "$scratch/jobs/0001"

# A job that is refused fails its worker, and no other job.
rm -r "$scratch"/jobs/*/out
echo broken >"$scratch/jobs/0003/nc/P1.nc1"
! "$scripts/work.sh" "$scratch/jobs" || fail "a refused job is told as done"
[ "$(documents)" -eq 11 ] || fail "a refused job stops others"
