#!/usr/bin/env bash
# fuzz.sh SECONDS [NAME...] runs each fuzzer of fuzz/, or those named, for so many seconds, under Clang's
# address and undefined-behaviour sanitizers, as many at a time as there are cores, and prints what they did.
# Inputs that reach new code stay in build/fuzz/corpus/NAME and are where the next call goes on from.
# fuzz.sh --same INPUTS [NAME...] tries so many, the same ones in each call, and keeps none; of whole runs, which
# take longer, a twentieth. Ends with 1 when an input breaks a law, and says where it lies; run it alone by:
# build/fuzz/bin/fuzz_NAME FILE
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

same=
if [ "${1:-}" = --same ]; then
    same=1
    shift
fi
if [[ ! "${1:-}" =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: fuzz.sh SECONDS [NAME...], or fuzz.sh --same INPUTS [NAME...]" >&2
    exit 2
fi
amount=$1
shift
names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for source in fuzz/Fuzz*.cpp; do
        name=${source#fuzz/Fuzz}
        names+=("${name%.cpp}")
    done
fi

scripts/setup.sh build fuzz
work=build/fuzz
[ -e $work/build.ninja ] || cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j"$(nproc)" --target "${names[@]/#/fuzz_}"

mkdir -p $work/found
# Quicker, and no less is found: the scheduling of inputs by what is rare takes four fifths of the time of whole
# runs, stacks of allocations and a long quarantine a tenth of all. Run alone, an input that breaks a law has them.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=8
# A folder in memory, where there is one: the fuzzers of files write each input.
[ -d /dev/shm ] && export TMPDIR=/dev/shm

# Files of the project that a fuzzer starts from besides its corpus.
seeds() {
    case $1 in
    NcReader | Run) echo examples/warehouse/nc tests/camjob/check/nc ;;
    JobFile) echo examples/warehouse/*.toml examples/formats/formats.toml job/templates/*.toml ;;
    FormatFile) echo examples/formats/*-*.toml job/formats/*.toml ;;
    esac
}

# fuzz NAME: the row of the table, or the end of its log.
fuzz() {
    local name=$1 given=$work/seeds/$1 corpus=$work/corpus/$1 log=$work/$1.log files
    local options=(-max_total_time="$amount")
    if [ -n "$same" ]; then
        corpus=$(mktemp -d)
        case $name in
        FormatFile | Run) options=(-seed=1 -runs=$((amount / 20))) ;;
        *) options=(-seed=1 -runs="$amount") ;;
        esac
    fi
    # An input for each number of times that a place is reached makes the files of this one twice as long and the
    # corpus four times as large, and reaches no more places.
    [ "$name" != NcReader ] || options+=(-use_counters=0)
    mkdir -p "$corpus" "$given"
    files=$(seeds "$name")
    # shellcheck disable=SC2086  # patterns
    [ -z "$files" ] || cp -ru $files "$given"
    [ ! -d fuzz/corpus/$name ] || cp -ru "fuzz/corpus/$name/." "$given"
    if ! $work/bin/fuzz_$name "${options[@]}" -timeout=20 -rss_limit_mb=4096 -max_len=8192 \
        -entropic=0 -detect_leaks=0 -dict=fuzz/$name.dict -artifact_prefix=$work/found/$name- -print_final_stats=1 \
        "$corpus" "$given" >"$log" 2>&1; then
        tail -40 "$log"
        echo "$name: an input breaks a law, see $work/found" >&2
        return 1
    fi
    [ -z "$same" ] || rm -rf "$corpus"
    awk -v name="$name" '
        /DONE/ { for (i = 1; i < NF; ++i) if ($i == "cov:") places = $(i + 1); else if ($i == "corp:") kept = $(i + 1) }
        /stat::number_of_executed_units/ { inputs = $2 }
        /stat::average_exec_per_sec/ { speed = $2 }
        END { sub("/.*", "", kept); printf "%-14s %12d %8d %8d %8d\n", name, inputs, speed, places, kept }' "$log"
}
export -f fuzz seeds
export work amount same

printf '%-14s %12s %8s %8s %8s\n' fuzzer inputs "a second" places kept
printf '%s\n' "${names[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz {}' || exit 1
