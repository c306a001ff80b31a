#!/usr/bin/env bash
# fuzz.sh SECONDS [NAME...] runs each fuzzer of fuzz/, or those named, for so many seconds, under Clang's
# address and undefined-behaviour sanitizers, and prints what they did. Inputs that reach new code stay in
# build/fuzz/corpus/NAME and are where the next call goes on from. Ends with 1 at the first input that
# breaks a law, and says where it lies; run it alone by: build/fuzz/bin/fuzz_NAME FILE
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ! "${1:-}" =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: fuzz.sh SECONDS [NAME...]" >&2
    exit 2
fi
seconds=$1
shift
names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for source in fuzz/Fuzz*.cpp; do
        name=${source#fuzz/Fuzz}
        names+=("${name%.cpp}")
    done
fi

# Files of the project that a fuzzer starts from besides its corpus.
declare -A seeds=(
    [NcReader]="examples/warehouse/nc tests/camjob/check/nc"
    [Run]="examples/warehouse/nc tests/camjob/check/nc"
    [JobFile]="examples/warehouse/*.toml examples/formats/formats.toml job/templates/*.toml"
    [FormatFile]="examples/formats/*-*.toml job/formats/*.toml"
)

scripts/setup.sh build fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j"$(nproc)" --target "${names[@]/#/fuzz_}"

work=build/fuzz
mkdir -p $work/found
# A folder in memory, where there is one: the fuzzers of files write each input.
[ -d /dev/shm ] && export TMPDIR=/dev/shm

printf '%-14s %12s %8s %8s %8s\n' fuzzer inputs "a second" places kept
for name in "${names[@]}"; do
    corpus=$work/corpus/$name
    log=$work/$name.log
    mkdir -p "$corpus" "$work/seeds/$name"
    # shellcheck disable=SC2086  # patterns
    [ -z "${seeds[$name]:-}" ] || cp -ru ${seeds[$name]} "$work/seeds/$name"
    [ ! -d fuzz/corpus/$name ] || cp -ru "fuzz/corpus/$name/." "$work/seeds/$name"
    if ! $work/bin/fuzz_$name -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=8192 \
        -detect_leaks=0 -dict=fuzz/$name.dict -artifact_prefix=$work/found/$name- -print_final_stats=1 \
        "$corpus" "$work/seeds/$name" >"$log" 2>&1; then
        tail -40 "$log"
        echo "$name: an input breaks a law, see $work/found" >&2
        exit 1
    fi
    awk -v name="$name" '
        /DONE/ { for (i = 1; i < NF; ++i) if ($i == "cov:") places = $(i + 1); else if ($i == "corp:") kept = $(i + 1) }
        /stat::number_of_executed_units/ { inputs = $2 }
        /stat::average_exec_per_sec/ { speed = $2 }
        END { sub("/.*", "", kept); printf "%-14s %12d %8d %8d %8d\n", name, inputs, speed, places, kept }' "$log"
done
