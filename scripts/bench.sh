#!/usr/bin/env bash
# Installs what is missing, builds the benchmarks, and measures: parts of the library, then whole jobs.
# Arguments are the numbers of members of the whole jobs; without any 100 to 100,000.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build bench
cmake --preset release -DCAMDATA_BUILD_BENCH=ON
cmake --build --preset release --target camdata_bench camdata_cutting_bench camdata_format_bench camdata_job_bench camdata_slots_bench -j"$(nproc)"
build/release/bin/camdata_bench
build/release/bin/camdata_cutting_bench
build/release/bin/camdata_slots_bench
build/release/bin/camdata_format_bench
jobs=$(mktemp -d)
trap 'rm -rf "$jobs"' EXIT
build/release/bin/camdata_job_bench build/release/bin/camjob "$jobs" "$@"
