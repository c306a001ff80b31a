#!/usr/bin/env bash
# Makes a release of the version in the file VERSION: checks that the change log tells of it, runs all of CI,
# installs the packages on a clean Debian 12, makes the reference, and gathers everything with checksums in
# build/camdata-VERSION. Needs root's rights (for the clean root) and the network. Changes no file of the sources,
# and leaves the tag to people.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
version=$(<VERSION)

fail() {
    echo "release.sh: $*" >&2
    exit 1
}

sources() {
    # What takes an hour must not end in that.
    [ "$(id -u)" -eq 0 ] || fail "only root can make the clean root at the end"
    [[ "$version" =~ ^[0-9]+\.[0-9]+\.[0-9]+$ ]] || fail "VERSION is $version, not three numbers"
    [ -z "$(git status --porcelain)" ] || fail "there are changes that are not committed"
    ! git rev-parse -q --verify "refs/tags/v$version" >/dev/null || fail "v$version is released already"
}

# The text between a heading of the change log and the next.
section() {
    awk -v heading="## $1" 'index($0, "## ") == 1 { on = index($0, heading) == 1; next } on && NF' CHANGELOG.md
}

change_log() {
    grep -qE "^## $version, [0-9]{4}-[0-9]{2}-[0-9]{2}$" CHANGELOG.md ||
        fail "CHANGELOG.md has no heading \"## $version, YYYY-MM-DD\""
    [ -n "$(section "$version")" ] || fail "CHANGELOG.md tells nothing of $version"
    [ -z "$(section Unreleased)" ] || fail "CHANGELOG.md has unreleased changes: move them to $version, or count VERSION up"
}

gather() {
    local folder=build/camdata-$version
    rm -rf "$folder"
    mkdir -p "$folder"
    cp build/release/packages/*.deb build/release/packages/*.tar.gz "build/windows/camdata-$version-windows-x86_64.zip" \
        "$folder"
    tar -C build/reference -czf "$folder/camdata-$version-reference.tar.gz" html
    (cd "$folder" && sha256sum -- * >SHA256SUMS && sha256sum --quiet -c SHA256SUMS && cat SHA256SUMS)
    echo "Release: $folder. If it is as it should be: git tag -a v$version -m \"camdata $version\""
}

sources
change_log
.ci/run
.ci/long
scripts/clean-root.sh build/release/packages
gather
