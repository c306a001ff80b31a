#!/usr/bin/env bash
# Installs what is missing, builds the benchmarks, and measures: parts of the library, then whole jobs, then
# the instructions of one member where valgrind is installed.
# Arguments are the numbers of members of the whole jobs; without any 100 to 100,000.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build bench
cmake --preset release -DCAMDATA_BUILD_BENCH=ON
cmake --build --preset release --target camdata_bench camdata_cutting_bench camdata_format_bench camdata_job_bench camdata_scaling_bench camdata_slots_bench -j"$(nproc)"
build/release/bin/camdata_bench
build/release/bin/camdata_cutting_bench
build/release/bin/camdata_slots_bench
build/release/bin/camdata_format_bench
build/release/bin/camdata_scaling_bench build/release
echo "the charts are build/release/gathering.svg and build/release/outlines.svg"
jobs=$(mktemp -d)
trap 'rm -rf "$jobs"' EXIT
build/release/bin/camdata_job_bench build/release/bin/camjob "$jobs" "$@"
cp "$jobs/members.svg" "$jobs/threads.svg" build/release
echo "the charts are build/release/members.svg and build/release/threads.svg"

# Instructions do not depend on what else the machine does: those of a run of 220 members less those of one
# of 20, by 200.
instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null build/release/bin/camjob \
        run "$jobs/$1/$2" --threads 1 --out "$jobs/$1/counted-$2" 2>&1 >/dev/null | sed -n 's/.*Collected : \([0-9]*\).*/\1/p'
}
if command -v valgrind >/dev/null; then
    build/release/bin/camdata_job_bench build/release/bin/camjob "$jobs" 20 220 >/dev/null
    for job in job.toml reports.toml; do
        echo "instructions per member, $job: $((($(instructions 220 $job) - $(instructions 20 $job)) / 200))"
    done
else
    echo "instructions per member: valgrind is not installed"
fi
