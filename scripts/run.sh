#!/usr/bin/env bash
# Installs what is missing, builds the release, and shows the holes of the example NC files.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset release
cmake --build --preset release --target camjob -j"$(nproc)"
build/release/bin/camjob check examples/nc/*.nc*
