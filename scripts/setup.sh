#!/usr/bin/env bash
# setup.sh PURPOSE... installs the Debian packages that a purpose needs and this machine lacks.
# Purposes: build (library, tool and tests), windows (cross build and Wine), bench (benchmarks),
# pictures (of the dialog) and page (of the report) for the documentation, packages (for Debian, and what
# checks them), reference (of the classes), fuzz (the fuzzers), same (results compared everywhere), coverage
# (what tests reach), release (a clean root to install in), ci (all else that CI runs), many-jobs (engines for
# examples/many-jobs).
# Installs as root, or through sudo when that asks nothing; otherwise prints the line to run and stops.
set -euo pipefail

declare -A packages=(
    [build]="cmake ninja-build g++ googletest libcli11-dev libtomlplusplus-dev libfmt-dev
        nlohmann-json3-dev libmimalloc-dev qt6-base-dev"
    [windows]="g++-mingw-w64-x86-64-posix wine wine64 fonts-wine"
    [bench]="libbenchmark-dev libpolyclipping-dev"
    [pictures]="xvfb xauth imagemagick"
    [page]="chromium"
    [packages]="dpkg-dev file pkg-config man-db"
    [reference]="doxygen"
    [fuzz]="clang libclang-rt-14-dev"
    [coverage]="gcovr"
    [same]="clang locales tzdata"
    [release]="debootstrap zsh"
    [many-jobs]="slurm-wlm munge parallel"
    [ci]="clang locales tzdata python3-ezdxf python3-jsonschema chromium-headless-shell"
)

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

needed=()
for purpose in "$@"; do
    if [ -z "${packages[$purpose]:-}" ]; then
        echo "setup.sh: no purpose '$purpose', only: ${!packages[*]}" >&2
        exit 2
    fi
    for package in ${packages[$purpose]}; do
        needed+=("$package")
    done
done

if ! command -v dpkg-query >/dev/null; then
    echo "No Debian system: make sure that you have the like of ${needed[*]}"
    exit 0
fi

missing=()
for package in "${needed[@]}"; do
    is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=(env)
elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    as_root=(sudo -n env)
else
    echo "These packages are missing. Install them and start again:" >&2
    echo "    sudo apt-get update && sudo apt-get install -y --no-install-recommends ${missing[*]}" >&2
    exit 3
fi

echo "Installing Debian packages: ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
as_root+=(DEBIAN_FRONTEND=noninteractive apt-get -q -y)
if ! "${as_root[@]}" update >"$log" 2>&1 </dev/null ||
    ! "${as_root[@]}" install --no-install-recommends "${missing[@]}" >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    exit 3
fi
