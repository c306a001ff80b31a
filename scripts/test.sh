#!/usr/bin/env bash
# Installs what is missing, builds the release, and runs all tests.
# Arguments go to CMake's configuration, for example -DCAMDATA_WERROR=ON.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset release "$@"
cmake --build --preset release -j"$(nproc)"
ctest --preset release -j"$(nproc)"
