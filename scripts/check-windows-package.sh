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
        lib/cmake/camdata/camdataConfig.cmake examples/minimal-plugin/CMakeLists.txt examples/nc \
        third-party-notices/{00-overview,libcli11-dev,nlohmann-json3-dev,libtomlplusplus-dev}.txt \
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
    [ ! -e camdata/project/ProjectInformation.rc ] ||
        grep -qzP '(^|\n) {2}5\n {4}3e8\n' <<<"$tree" || fail "camdata.dll has no dialog 1000: $tree"
}

exported_names() {
    CAMDATA_ABI_LIBRARY="$unpacked/bin/camdata.dll" ctest --preset windows -R '^abi$'
}

plug_ins() {
    RUNNER=$runner tests/check-installed.sh "$unpacked/examples" "$scratch/projects" \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake" \
        -Dcamdata_DIR="$unpacked/lib/cmake/camdata"
}

# The packed tool and that of this system write the same. Both are started in the unpacked folder.
same_bytes() {
    cmake --preset release
    cmake --build --preset release --target camjob -j"$(nproc)"
    local linux_tool=$PWD/build/release/bin/camjob
    cd "$unpacked"
    local files=(examples/nc/*.nc*)
    local code=0 linux_code=0
    "$runner" bin/camjob.exe check "${files[@]}" >"$scratch/windows.txt" || code=$?
    "$linux_tool" check "${files[@]}" >"$scratch/linux.txt" || linux_code=$?
    cmp "$scratch/windows.txt" "$scratch/linux.txt" || fail "camjob check differs"
    [ "$code" = "$linux_code" ] || fail "camjob check ends with $code, on Linux with $linux_code"
}

unpack
contents
imports
resources
exported_names
plug_ins
same_bytes
echo "$zip: as it should be"
