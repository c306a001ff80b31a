#!/usr/bin/env bash
# same-results.sh [--all | TOOL...] runs the example jobs by each tool (those that were built, without an
# argument; --all first builds the tool by each compiler with and without optimising), in several locales, time
# zones and orders in which the disk lists its files, on one thread and on several, and compares every byte
# that they write and say. A tool ending in .exe runs through Wine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [ "${1:-}" = --all ]; then
    shift
    scripts/setup.sh build same
    for compiler in g++ clang++; do
        for type in Debug Release; do
            tree=build/same/$compiler-$type
            cmake -S . -B $tree -G Ninja -DCMAKE_BUILD_TYPE=$type -DCAMDATA_BUILD_TESTS=OFF \
                -DCMAKE_CXX_COMPILER=$compiler >/dev/null
            cmake --build $tree -j"$(nproc)" --target camjob
        done
    done
fi
tools=("$@")
if [ ${#tools[@]} -eq 0 ]; then
    for tool in build/{release,asan,fuzz}/bin/camjob build/same/*/bin/camjob build/windows/bin/camjob.exe; do
        [ ! -e $tool ] || tools+=("$tool")
    done
fi
[ ${#tools[@]} -gt 0 ] || { echo "same-results.sh: no tool was built" >&2; exit 2; }

disk=$(mktemp -d)
memory=$disk/memory
[ ! -d /dev/shm ] || memory=$(mktemp -d -p /dev/shm)
trap 'rm -rf "$disk" "$memory"' EXIT

# The same files made in two orders: a file system in memory lists the youngest first, one on disk by hash.
copy() {
    local folder=$1
    shift
    find examples/warehouse examples/formats -type f | "$@" | while IFS= read -r file; do
        mkdir -p "$folder/$(dirname "$file")"
        cp "$file" "$folder/$file"
    done
}
copy "$disk/forth" sort
copy "$memory/forth" sort
copy "$memory/back" sort -r

locales=(C)
mkdir "$disk/locales"
for name in de_DE tr_TR; do
    ! localedef -i $name -f UTF-8 "$disk/locales/$name.UTF-8" 2>/dev/null || locales+=("$name.UTF-8")
done
export LOCPATH=$disk/locales WINEDEBUG=${WINEDEBUG:--all}

# The first start in a prefix says so, between the words of the tool.
if [[ "${tools[*]}" == *.exe* ]]; then
    export WINEPREFIX=$disk/wine
    CAMDATA_WINEPREFIX=$WINEPREFIX cmake/wine-run.sh cmd /c exit
fi

# run TOOL PLACE LOCALE ZONE THREADS RESULT: all that the jobs write and say, in the folder RESULT.
run() {
    local tool place=$2 result=$6 job
    tool=$(realpath "$1")
    local call=("$tool")
    [[ "$tool" != *.exe ]] || call=(wine "$tool")
    for job in warehouse/warehouse formats/formats; do
        (
            cd "$place/examples/${job%/*}"
            mkdir -p "$result"
            said=$result/${job#*/}.txt
            if ! LC_ALL=$3 TZ=$4 "${call[@]}" run "${job#*/}.toml" --out same --threads $5 \
                >"$said" 2>&1 && [ ! -d same ]; then
                cat "$said"
                exit 1
            fi
            mv same "$result/${job#*/}"
        )
    done
}

reference=
count=0
for tool in "${tools[@]}"; do
    for place in "$disk/forth" "$memory/forth" "$memory/back"; do
        for locale in "${locales[@]}"; do
            for zone in UTC Pacific/Auckland; do
                for threads in 1 7; do
                    result=$disk/result-$((count += 1))
                    run "$tool" "$place" "$locale" $zone $threads "$result"
                    if [ -z "$reference" ]; then
                        reference=$result
                    elif ! diff -r "$reference" "$result"; then
                        echo "same-results.sh: $tool in $place, $locale, $zone, $threads threads: not the same" >&2
                        exit 1
                    else
                        rm -rf "$result"
                    fi
                done
            done
        done
    done
done
# It writes to its prefix until it ends.
[[ "${tools[*]}" != *.exe* ]] || wineserver -w
echo "$count runs of ${#tools[@]} tools in ${#locales[@]} locales: $(find "$reference" -type f | wc -l) files, the same bytes"
