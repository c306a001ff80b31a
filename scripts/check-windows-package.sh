#!/usr/bin/env bash
# check-windows-package.sh ZIP checks the package as its users get it: unpacks it in a folder with blanks
# and umlauts in its name, looks into the packed files, and uses them.
set -euo pipefail
zip=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unpacked="$scratch/Träger und Maße"
tool_prefix=x86_64-w64-mingw32
runner=$PWD/cmake/wine-run.sh

fail() {
    echo "check-windows-package.sh: $*" >&2
    exit 1
}

unpack() {
    mkdir "$unpacked"
    (cd "$unpacked" && cmake -E tar xf "$zip")
    mv "$unpacked"/camdata-*/* "$unpacked"
}

contents() {
    local file
    for file in README.txt bin/camdata.dll bin/camjob.exe lib/libcamdata.dll.a include/camdata/camdata.h \
        lib/cmake/camdata/camdataConfig.cmake lib/libcamdata_dstv.a lib/libcamdata_codepages.a include/dstv/NcHost.h docs/plugin-guide.md \
        examples/minimal-plugin/CMakeLists.txt examples/nc \
        third-party-notices/{00-overview,libcli11-dev,libfmt-dev,nlohmann-json3-dev,libtomlplusplus-dev}.txt \
        third-party-notices/{g++-mingw-w64-x86-64-posix,mingw-w64-x86-64-dev}.txt; do
        [ -e "$unpacked/$file" ] || fail "$file is missing"
    done
    local dlls
    dlls=$(cd "$unpacked" && find . -name '*.dll')
    [ "$dlls" = ./bin/camdata.dll ] || fail "other DLLs are packed: $dlls"
}

# Only what every Windows has.
imports() {
    local system='advapi32 comctl32 comdlg32 gdi32 kernel32 msvcrt ole32 oleacc oleaut32 shell32 user32 version'
    local file name
    for file in camdata.dll camjob.exe; do
        for name in $($tool_prefix-objdump -p "$unpacked/bin/$file" |
            sed -n 's/^\tDLL Name: \(.*\)\.dll$/\L\1/Ip'); do
            case " $system camdata " in
            *" $name "*) ;;
            *) fail "$file needs $name.dll" ;;
            esac
        done
    done
}

# Version resource (type 16) number 1, and dialog template (type 5) number 1000.
resources() {
    local tree
    tree=$($tool_prefix-objdump -p "$unpacked/bin/camdata.dll" |
        sed -n 's/^[0-9a-f]* \( *\)Entry: ID: 0x0*\([0-9a-f]*\),.*/\1\2/p')
    grep -qzP '(^|\n) {2}10\n {4}1\n' <<<"$tree" || fail "camdata.dll has no version: $tree"
    grep -qzP '(^|\n) {2}5\n {4}3e8\n' <<<"$tree" || fail "camdata.dll has no dialog 1000: $tree"
}

exported_names() {
    CAMDATA_ABI_LIBRARY="$unpacked/bin/camdata.dll" ctest --preset windows -R '^abi$'
}

plug_ins() {
    RUNNER=$runner CAMJOB=$unpacked/bin/camjob.exe tests/check-installed.sh "$unpacked/examples" "$scratch/projects" \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake" \
        -Dcamdata_DIR="$unpacked/lib/cmake/camdata"
}

# Runs the example job and shows the example files with a tool, in the unpacked folder; keeps all that it
# writes, and its exit codes, in another one. What it shows may name files the system's own way.
outcome_of() {
    local kept=$1
    shift
    mkdir "$kept"
    (
        cd "$unpacked"
        for arguments in "run examples/warehouse/warehouse.toml --out Aufträge" \
            "check examples/nc/*.nc*" "check --json examples/nc/*.nc*"; do
            # The pattern is for the shell.
            # shellcheck disable=SC2086
            "$@" $arguments && echo "code 0" || echo "code $?"
        done | tr '\\' / >"$kept/shown.txt"
        mv Aufträge "$kept"
    )
}

# The packed tool writes the same as that of this system.
same_bytes() {
    cmake --preset release >/dev/null
    cmake --build --preset release --target camjob -j"$(nproc)"
    outcome_of "$scratch/windows" "$runner" bin/camjob.exe
    outcome_of "$scratch/linux" "$PWD/build/release/bin/camjob"
    # So that nothing is not the same as nothing.
    [ "$(find "$scratch/linux/Aufträge" -type f -size +0 | wc -l)" -ge 4 ] || fail "the example job wrote nothing"
    diff -r "$scratch/linux" "$scratch/windows" || fail "camjob writes something else than on Linux"
}

unpack
contents
imports
resources
exported_names
plug_ins
same_bytes
echo "$zip: as it should be"
