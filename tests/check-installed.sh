#!/usr/bin/env bash
# check-installed.sh EXAMPLES SCRATCH CMAKE-ARGUMENT... builds projects of other people against an
# installed or unpacked library, and runs them: one that links with it, and a plug-in (that of the folder
# of examples) that a host loads and unloads, the installed tool CAMJOB too. The CMake arguments say where the
# library is and for which system to build. RUNNER in the environment is a program that starts them.
set -euo pipefail
tests=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
examples=$(realpath "$1")
runner=(${RUNNER:+"$RUNNER"})
mkdir -p "$2"
cd "$2"
shift 2

build() {
    cmake -S "$1" -B "$(basename "$1")" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_CXX_FLAGS="-Wall -Wextra -Wconversion -Wshadow -Werror" "${@:2}"
    cmake --build "$(basename "$1")"
}

# The one file that matches, whatever the system calls programs and modules.
built() {
    find . -path "$1" \( -name '*.exe' -o -name '*.dll' -o -name '*.so' -o ! -name '*.*' \) -type f
}

build "$tests/consumer" "$@"
build "$examples/minimal-plugin" "$@"
build "$tests/plugin_host" "$@"

run() {
    echo "Running $*" >&2
    "${runner[@]}" "$@"
}

# The bytes of FILE are those of the golden file.
expect() {
    tr -d '\r' <"$1" | diff -u "$tests/consumer/golden/$1" - || exit 1
}

run "$(built './consumer/consumer*')"
run "$(built './consumer/reader*')" "$examples/nc/Z200-purlin.nc1" >holes.txt
expect holes.txt
run "$(built './plugin_host/plugin_host*')" \
    "$(built './minimal-plugin/minimal_plugin.*')" "$(built './plugin_host/host_entities.*')"

# The same plug-in with the tool as its host.
cp "$examples"/nc/{PL12-bracket,Z200-purlin}.nc1 .
run "$CAMJOB" host "$(built './minimal-plugin/minimal_plugin.*')" PL12-bracket.nc1 Z200-purlin.nc1 --out hosted || [ $? -eq 1 ]
cat hosted/*.txt >hosted.txt
expect hosted.txt
