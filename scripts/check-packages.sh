#!/usr/bin/env bash
# check-packages.sh FOLDER checks the packages for Linux as their users get them: looks into the Debian packages and
# the archive, and uses both unpacked, the archive in a folder with blanks and umlauts in its name.
# (scripts/clean-root.sh installs them.)
set -euo pipefail
packages=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
version=$(<VERSION)
debian=$scratch/debian/usr
archive="$scratch/Träger und Maße"

fail() {
    echo "check-packages.sh: $*" >&2
    exit 1
}

# The one package of that name.
package() {
    local files=("$packages/$1"_*.deb)
    [ -f "${files[0]}" ] && [ ${#files[@]} -eq 1 ] || fail "no package $1 in $packages, or several"
    echo "${files[0]}"
}

unpack() {
    local name
    mkdir -p "$scratch/debian" "$archive"
    for name in libcamdata1 libcamdata-dev camjob; do
        dpkg-deb -x "$(package $name)" "$scratch/debian"
    done
    tar -C "$archive" --strip-components=1 -xf "$packages"/camdata-"$version"-linux-*.tar.gz
}

# holds PACKAGE FILE...: the package has these files, below /usr.
holds() {
    local name=$1 file
    dpkg-deb -c "$(package "$name")" | awk '{ sub(/^\.\/usr\//, "", $6); print $6 }' >"$scratch/files"
    for file in "${@:2}" "share/doc/$name/copyright"; do
        grep -qxF "$file" "$scratch/files" || fail "$name lacks $file"
    done
}

contents() {
    holds libcamdata1 "lib/libcamdata.so.$version" lib/libcamdata.so.1
    holds libcamdata-dev lib/libcamdata.so lib/libcamdata_dstv.a lib/libcamdata_codepages.a include/camdata/camdata.h include/dstv/NcHost.h \
        lib/cmake/camdata/camdataConfig.cmake lib/pkgconfig/camdata.pc lib/pkgconfig/camdata-dstv.pc
    local documents=share/doc/camdata
    holds camjob bin/camjob lib/camdata/libmimalloc.so.2 share/man/man1/camjob.1 share/bash-completion/completions/camjob \
        share/zsh/vendor-completions/_camjob $documents/docs/{first-job,plugin-guide,job-file}.md \
        $documents/README.md $documents/CHANGELOG.md $documents/examples/warehouse/warehouse.toml \
        $documents/examples/minimal-plugin/CMakeLists.txt \
        $documents/third-party-notices/{00-overview,libcli11-dev,libfmt-dev,libmimalloc-dev,nlohmann-json3-dev,libtomlplusplus-dev}.txt
    [ -z "$(find "$debian" -path '*/build/*' -o -name '*.h.in' -o -name '*gtest*')" ] || fail "files too many are packed"
}

# Only the system's C and C++ libraries besides one another; Qt only for the dialogs.
dependencies() {
    local name needed
    for name in libcamdata1 camjob; do
        needed=$(dpkg-deb -f "$(package $name)" Depends | tr ',' '\n' | sed 's/^ *//; s/ .*//' | sort -u |
            grep -vxE 'libc6|libgcc-s1|libstdc\+\+6|libcamdata1' || true)
        [ -z "$needed" ] || fail "$name depends on $needed"
    done
    for name in libcamdata-dev camjob; do
        dpkg-deb -f "$(package $name)" Depends | grep -qF "libcamdata1 (= $version)" ||
            fail "$name does not depend on the library of its version"
    done
}

# Every library that is compiled in or packed has a row in the overview and its licence in full.
notices() {
    local folder=$debian/share/doc/camdata/third-party-notices package
    for package in $(sed -n 's/^camdata_header_library(.* \([a-z0-9-]*\))$/\1/p' cmake/HeaderOnlyLibraries.cmake) libmimalloc-dev; do
        grep -q "^$package " "$folder/00-overview.txt" || fail "the overview of notices lacks $package"
        [ "$(wc -c <"$folder/$package.txt")" -gt 500 ] || fail "the notice of $package is not there in full"
    done
}

# The archive has what the Debian packages have, but for their copyright files.
same_files() {
    diff <(cd "$debian" && find . -type f -o -type l | grep -v '/doc/[^/]*/copyright$' | sort) \
        <(cd "$archive" && find . -type f -o -type l | grep -v -e '/doc/[^/]*/copyright$' -e 'camdata_qt' | sort) ||
        fail "archive and Debian packages differ"
}

manual_and_completion() {
    local faults
    faults=$(LC_ALL=C.UTF-8 man --warnings "$debian/share/man/man1/camjob.1" 2>&1 >"$scratch/manual")
    [ -z "$faults" ] || fail "camjob.1: $faults"
    grep -q -- --dialog "$scratch/manual" || fail "camjob.1 lacks options"
    (
        # shellcheck disable=SC1091
        source "$debian/share/bash-completion/completions/camjob"
        COMP_WORDS=(camjob r) COMP_CWORD=1
        _camjob
        [ "${COMPREPLY[*]}" = run ] || fail "completion of commands: ${COMPREPLY[*]}"
        COMP_WORDS=(camjob run --no) COMP_CWORD=2
        _camjob
        [ "${COMPREPLY[*]}" = --notes ] || fail "completion of options: ${COMPREPLY[*]}"
    )
    ! command -v zsh >/dev/null || zsh -n "$debian/share/zsh/vendor-completions/_camjob"
}

# Projects of others, with CMake and with pkg-config, and the guides.
projects() {
    local documents="$archive/share/doc/camdata"
    CAMJOB=$archive/bin/camjob tests/check-installed.sh "$documents/examples" "$scratch/projects" \
        -DCMAKE_PREFIX_PATH="$archive"
    local guide
    for guide in first-job plugin-guide; do
        PATH=$archive/bin:$PATH CMAKE_PREFIX_PATH=$archive \
            tests/check-guide.sh "$documents/docs/$guide.md" "$documents" "$scratch/$guide"
    done
    # No blanks: those who read what pkg-config says part it there.
    local flags
    flags=$(PKG_CONFIG_PATH=$debian/lib/pkgconfig pkg-config --cflags --libs camdata-dstv)
    # shellcheck disable=SC2086
    g++ tests/consumer/Reader.cpp -o "$scratch/reader" $flags
    LD_LIBRARY_PATH=$debian/lib "$scratch/reader" examples/nc/Z200-purlin.nc1 | diff tests/consumer/golden/holes.txt -
}

# A stand-in of that name, in the folder where the documents of those who build are typed.
stand_in() {
    printf '#!/bin/bash\n%s\n' "$2" >"$place/$1"
    chmod +x "$place/$1"
}

# A copy of the sources with their build/release. Of its scripts those that CI runs anyway are not run once more.
make_place() {
    local entry script
    mkdir -p "$place"/{home,bin,build,.git/hooks}
    for entry in *; do
        [ "$entry" = build ] || cp -r "$entry" "$place"
    done
    ln -s "$PWD/build/release" "$place/build/release"
    for script in scripts/*.sh; do
        if grep -qF "$script" .ci/run .ci/long; then
            stand_in "$script" "echo CI runs $script"
        else
            stand_in "$script" "exec '$PWD/$script' \"\$@\""
        fi
    done
    # What would be installed, and whether it could be.
    ln -s "$packages"/*.deb "$place"
    stand_in bin/apt-get 'exec /usr/bin/apt-get -s -o Debug::NoLocking=1 "$@"'
    # What the README calls so.
    cp "$scratch"/projects/minimal-plugin/minimal_plugin.so "$place/my-plugin.so"
    cp -r examples/nc "$place/folder-of-nc-files"
    local folder
    for folder in yesterday today; do
        "$archive/bin/camjob" run examples/warehouse/warehouse.toml --out "$place/$folder" >/dev/null || [ $? -eq 1 ]
    done
}

# Each command of the documents that no guide has.
commands() {
    local place=$scratch/place document
    make_place
    type_in_place() {
        HOME=$place/home PATH=$place/bin:$archive/bin:$PATH tests/check-guide.sh "$1" "$archive/share/doc/camdata" \
            "$scratch/commands" "$place"
    }
    for document in README.md CONTRIBUTING.md examples/warehouse/README.md examples/formats/README.md \
        examples/many-jobs/README.md docs/check-json.md; do
        type_in_place $document
    done
    rm -r "$place"/{build,.git}
    type_in_place docs/windows.md
}

# The packed tools do what the built one does.
example_job() {
    local prefix code=0
    for prefix in "$debian" "$archive"; do
        "$prefix/bin/camjob" run "$prefix/share/doc/camdata/examples/warehouse/warehouse.toml" \
            --out "$scratch/made" >/dev/null || code=$?
        [ $code -eq 1 ] || fail "the example job ends with $code"
        [ "$(find "$scratch/made" -type f | wc -l)" -ge 4 ] || fail "the example job wrote nothing"
        rm -rf "$scratch/made"
    done
    [[ "$("$debian/bin/camjob" --version)" == "camjob $version"* ]] || fail "the version is not $version"
}

unpack
contents
dependencies
notices
same_files
manual_and_completion
projects
commands
example_job
echo "$packages: as they should be:"
(cd "$packages" && ls -1)
