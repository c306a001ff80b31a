#!/usr/bin/env bash
# Installs what is missing, cross-builds the release for Windows, and runs all tests through Wine.
# Arguments go to CMake's configuration, for example -DCAMDATA_WERROR=ON.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build windows
cmake --preset windows "$@"
cmake --build --preset windows -j"$(nproc)"
ctest --preset windows -j"$(nproc)"
