#!/usr/bin/env bash
# check-installed.sh EXAMPLES SCRATCH CMAKE-ARGUMENT... builds projects of other people against an
# installed or unpacked library, and runs them: one that links with it, and a plug-in (that of the folder
# of examples) that a host loads and unloads. The CMake arguments say where the library is and for which
# system to build. RUNNER in the environment is a program that starts them.
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
    echo "Running $*"
    "${runner[@]}" "$@"
}

run "$(built './consumer/consumer*')"
run "$(built './plugin_host/plugin_host*')" \
    "$(built './minimal-plugin/minimal_plugin.*')" "$(built './plugin_host/host_entities.*')"
