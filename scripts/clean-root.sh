#!/usr/bin/env bash
# clean-root.sh FOLDER installs the packages of a folder on a clean Debian 12 and uses them there, as users do: the
# archive first, while nothing else is installed, then the tool, then what a plug-in's author needs. Makes the root
# anew with debootstrap from the mirror MIRROR (Debian's own by default). Needs root's rights and the network.
set -euo pipefail
packages=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/setup.sh release
[ "$(id -u)" -eq 0 ] || { echo "clean-root.sh: only root can make a root of its own" >&2; exit 3; }

root=$(mktemp -d)
clean_up() {
    ! mountpoint -q "$root/proc" || umount "$root/proc"
    rm -rf --one-file-system "$root"
}
trap clean_up EXIT
log=$root.log
version=$(<VERSION)

# In the clean root.
inside() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

quietly() {
    "$@" >>"$log" 2>&1 </dev/null || { tail -30 "$log" >&2; echo "clean-root.sh: failed: $*" >&2; exit 1; }
}

echo "A clean Debian 12 ..."
quietly debootstrap --variant=minbase bookworm "$root" "${MIRROR:-http://deb.debian.org/debian}"
# Programs ask there where they are.
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
mkdir "$root/packages"
cp "$packages"/*.deb "$packages"/*.tar.gz "$root/packages"

# runs_the_example CAMJOB DOCUMENTS: members are wrong on purpose, exit code 1.
runs_the_example() {
    local code=0
    inside "$1" run "$2/examples/warehouse/warehouse.toml" --out /tmp/made >/dev/null || code=$?
    [ $code -eq 1 ] || { echo "clean-root.sh: $1: the example job ended with $code" >&2; exit 1; }
    rm -rf "$root/tmp/made"
}

echo "The archive ..."
inside tar -C /opt -xf "/packages/$(basename "$packages"/*.tar.gz)"
unpacked=$(cd "$root" && echo opt/camdata-*)
runs_the_example "/$unpacked/bin/camjob" "/$unpacked/share/doc/camdata"
rm -rf "${root:?}/$unpacked"

# Names of packages, or patterns of files in the root.
install() {
    # shellcheck disable=SC2016
    quietly inside sh -c 'apt-get -q -y install --no-install-recommends $*' install "$@"
}

echo "The tool ..."
install "/packages/libcamdata1_*.deb" "/packages/camjob_*.deb"
runs_the_example camjob /usr/share/doc/camdata
inside camjob --version

echo "What a plug-in's author needs ..."
install "/packages/libcamdata-dev_*.deb" g++ cmake ninja-build
quietly inside cmake -S /usr/share/doc/camdata/examples/minimal-plugin -B /tmp/plugin -G Ninja
quietly inside cmake --build /tmp/plugin
code=0
inside camjob host /tmp/plugin/minimal_plugin.so /usr/share/doc/camdata/examples/nc --out /tmp/hosted || code=$?
[ $code -le 1 ] || exit 1

echo "Dialogs ..."
install "/packages/libcamdata-dialogs_*.deb"

echo "And all of it goes again ..."
quietly inside apt-get -q -y purge libcamdata1 libcamdata-dev libcamdata-dialogs camjob
left=$(cd "$root" && find usr -path '*camdata*' -o -name '*camjob*')
[ -z "$left" ] || { echo "clean-root.sh: left behind: $left" >&2; exit 1; }
rm -f "$log"
echo "Version $version installs, runs and goes on a clean Debian 12"
